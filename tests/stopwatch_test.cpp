#include "core/frmBackGround.h"
#include "lesson.h"
#include "results/frmTimer.h"

namespace marrowfen {
namespace {

class Stopwatch : public testing::Test, protected Lesson {};

TEST_F(Stopwatch, NothingCanBePlayedBeforeItIsStarted) {
    switches(Phonics::Off);
    for (const int game : {14, 13, 25, 26, 7}) {
        SCOPED_TRACE(game);
        opens(game);
        auto& stopwatch = room.form<frmTimer>();
        const auto plays_everywhere = [&] {  // wherever the pupil has clicked last
            for (Form* form : std::vector<Form*>{&room.form<frmBackGround>(), &board(), &stopwatch}) {
                ann.clicks_at({form->Left + 5, form->Top + 5});
                EXPECT_EQ(room.desktop.active(), form);
                ann.types(wrong_letter());
            }
        };
        plays_everywhere();
        ann.clicks_at(centre_on_screen(key(right_letter())));
        room.display.press(centre_on_screen(tile(0)));
        EXPECT_FALSE(room.desktop.drag());
        room.display.release({0, 0});
        room.seconds_pass(100);
        EXPECT_EQ(room.state().KeysDone, 0);
        EXPECT_EQ(room.state().TimeElapsed, 0);
        EXPECT_TRUE(room.heard_and_forgotten().empty());
        EXPECT_EQ(shown_by(key("B").Picture), "Back\\Upper\\B.BMP") << "the board stands ready";

        ann.starts_the_clock();
        EXPECT_FALSE(stopwatch.Timer_Start_De.Visible || stopwatch.Timer_Start_Pre.Visible) << "it starts only once";
        plays_everywhere();
        EXPECT_EQ(room.heard_and_forgotten().size(), 3U);
        goes_back_to_the_list();
    }
}

TEST_F(Stopwatch, StartsOnceAndWholeWhateverHappensMeanwhile) {
    for (const std::size_t yield : {0U, 1U}) {
        SCOPED_TRACE(yield);
        opens(7, kGreenTeam);
        room.display.during_yield([&] { ann.starts_the_clock(); }, yield);
        ann.starts_the_clock();
        ASSERT_EQ(room.form<frmTimer>().dial.drawn().size(), 1U);
        EXPECT_EQ(room.form<frmTimer>().dial.drawn()[0].fill, kGreenTeam.colour);
        room.seconds_pass(1);
        EXPECT_EQ(room.state().TimeElapsed, 1);
        goes_back_to_the_list();

        opens(7);
        room.display.during_yield([&] { goes_back_to_the_list(); }, yield);
        ann.starts_the_clock();
        room.seconds_pass(100);
        EXPECT_EQ(room.open_forms(), (std::vector{FormId::frmBackGround, FormId::frmGames}));
        EXPECT_EQ(room.state().TimeElapsed, 0);
    }
}

}  // namespace
}  // namespace marrowfen
