// Another computer holds the store while a child goes on.

#include "classroom.h"
#include "pupils/frmErrmsg.h"
#include "pupils/frmSelectGame.h"
#include "pupils/frmSettings.h"
#include "store_fixture.h"
#include "trial.h"

namespace marrowfen::test {
namespace {

using Clock = std::chrono::steady_clock;

TEST_F(StoreTest, WaitsForOthersOnceATurn) {
    SqliteStoreEngine engine(files_, 150ms);
    const auto store = engine.open(name_).value();
    int told_of_waiting = 0;
    engine.patience().on_wait = [&] { ++told_of_waiting; };
    EXPECT_EQ(other_.run("BEGIN EXCLUSIVE"), "");
    for (int turn = 1; turn <= 2; ++turn) {
        engine.patience().begin_turn();
        const auto before = Clock::now();
        for (int question = 0; question < 5; ++question) {
            const auto answer = store->open("Pupils")->move_first();
            ASSERT_TRUE(answer.failure());
            EXPECT_EQ(answer.failure()->trouble, Trouble::Busy);
        }
        EXPECT_GE(Clock::now() - before, 150ms);
        EXPECT_LT(Clock::now() - before, 600ms);
        EXPECT_EQ(told_of_waiting, turn);
    }
    EXPECT_EQ(other_.run("COMMIT"), "");
    engine.patience().begin_turn();
    const auto answer = store->open("Pupils")->move_first();
    EXPECT_FALSE(answer.failure());
    EXPECT_EQ(told_of_waiting, 2);
}

/// What a child does, each time with the store held by another computer and, told so, once more.
TEST(Locks, LetNoFormStandStillForLong) {
    Classroom room;
    Pupil ann(room);
    OtherProgram other(room.folder.path() / "data.mdb");
    Clock::duration longest{};
    const auto held = [&](const char* what, const std::function<void()>& act) {
        EXPECT_EQ(other.run("BEGIN EXCLUSIVE"), "");
        room.sqlite.patience().begin_turn();
        const auto before = Clock::now();
        act();
        const auto took = Clock::now() - before;
        longest = std::max(longest, took);
        told() << what << ": " << std::chrono::duration_cast<std::chrono::milliseconds>(took).count() << " ms, \""
               << room.message() << "\"\n";
        EXPECT_LT(took, 2s) << what;
        EXPECT_NE(room.message().find("another computer is using it"), std::string::npos) << room.message();
        EXPECT_EQ(other.run("COMMIT"), "");
        room.sqlite.patience().begin_turn();
        ann.presses(&frmErrmsg::ContinueDe);
    };
    room.start();
    if (runs(0) != 0) held("a name", [&] { ann.chooses(room.form<frmSelectGame>().cmbPupils, "Ann"); });
    ann.sits_down("Ann");
    ann.picks_game(1);
    held("a team", [&] { ann.press(room.form<frmSettings>().redDe); });
    EXPECT_TRUE(room.is_open(FormId::frmGames) || room.is_open(FormId::frmSettings));
}

}  // namespace
}  // namespace marrowfen::test
