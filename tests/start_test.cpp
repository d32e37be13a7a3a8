#include "classroom.h"
#include "core/program.h"

namespace marrowfen {
namespace {

TEST(TheProgram, StartsSilentlyWithBothSwitchesOn) {
    Classroom room;
    room.display.during_yield([&] {
        EXPECT_EQ(room.open_forms(), std::vector{FormId::frmBackGround});
        EXPECT_FALSE(room.random.seeded()) << "the first screen must not wait for anything";
    });
    room.start();
    EXPECT_TRUE(room.random.seeded());
    EXPECT_TRUE(room.state().SoundOn && room.state().PhonicsOn);
    EXPECT_EQ(room.desktop.active(), room.program.forms.find(FormId::frmSelectGame));
    EXPECT_TRUE(room.sound.heard().empty());
}

TEST(TheProgram, StaysClosedIfItIsClosedWhileItStarts) {
    Classroom room;
    room.display.during_yield([&] { room.program.forms.unload_all(); });
    room.start();
    EXPECT_TRUE(room.display.ended());
    EXPECT_TRUE(room.open_forms().empty());
}

TEST(TheProgram, ShowsAndWritesNothingWithoutAStore) {
    Classroom room;
    const auto file = room.folder.path() / "data.mdb";
    std::filesystem::remove(file);
    const auto failure = room.program.start();
    ASSERT_TRUE(failure);
    EXPECT_FALSE(failure->reason.empty());
    EXPECT_TRUE(room.open_forms().empty());
    EXPECT_FALSE(std::filesystem::exists(file));
}

}  // namespace
}  // namespace marrowfen
