#include <functional>

#include "board/frmSimpleKeyBoard.h"
#include "classroom.h"
#include "core/frmBackGround.h"
#include "pupils/frmSettings.h"
#include "results/frmScore.h"
#include "results/frmTimeUp.h"
#include "results/frmTimer.h"

namespace marrowfen {
namespace {

constexpr int kTiles = 7;
constexpr float kTwelve = -1.58F;

/// Lets the last second pass and gives what the dial bears after its tick, which also closes the stopwatch.
std::vector<Disc> after_the_last_tick(Classroom& room) {
    std::vector<Disc> drawn;
    const Dial& dial = room.form<frmTimer>().dial;
    room.display.during_yield([&] {
        room.seconds_pass(1);
        drawn = dial.drawn();
    });
    room.desktop.yield();
    return drawn;
}

TEST(Stopwatch, GrowsASectorRoundTheDialUntilTheTimeOfTheTeamIsUp) {
    struct Case {
        const Team& team;
        int past_three;  ///< the tick after which the angle is thrown a whole turn back
        float first, last_whole, last;
    };
    const std::vector<Case> cases{
        {kRedTeam, 15, -1.47524F, -1.67047F, -1.46095F},
        {kYellowTeam, 30, -1.52762F, -1.61809F, -1.51333F},
        {kGreenTeam, 45, -1.54508F, -1.60063F, -1.53079F},
        {kBlueTeam, 60, -1.55381F, -1.59192F, -1.53954F},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.team.name);
        Classroom room;
        Pupil ann(room);
        ann.begins(kTiles, c.team);
        const auto& stopwatch = room.form<frmTimer>();
        const auto angle = [&] { return stopwatch.dial.drawn().back().sector.value().start; };
        constexpr float kNear = 0.00002F;

        ASSERT_EQ(stopwatch.dial.drawn().size(), 1U);
        const Disc& dial = stopwatch.dial.drawn()[0];
        EXPECT_FALSE(dial.sector);
        EXPECT_EQ(dial.fill, c.team.colour);
        EXPECT_EQ(dial.outline, kWhite);

        room.seconds_pass(1);
        EXPECT_NEAR(angle(), c.first, kNear);
        EXPECT_EQ(stopwatch.dial.drawn().back().fill, kWhite);
        room.seconds_pass(c.past_three - 1);
        EXPECT_NEAR(angle(), -0.00857F, kNear);
        const float step = c.first - kTwelve;
        room.seconds_pass(1);
        EXPECT_NEAR(angle(), -6.28F + step, kNear);
        room.seconds_pass(c.team.time_limit - c.past_three - 2);
        EXPECT_NEAR(angle(), c.last_whole, kNear);
        EXPECT_EQ(room.state().TimeElapsed, c.team.time_limit - 1);
        EXPECT_TRUE(room.is_open(FormId::frmSimpleKeyBoard));

        const auto last = after_the_last_tick(room);
        ASSERT_EQ(last.size(), 3U) << "the disc, nearly all of it in white, and the hand a little past twelve";
        EXPECT_NEAR(last[2].sector->start, c.last, kNear);
        EXPECT_EQ(last[2].sector->end, kTwelve);
        EXPECT_EQ(room.state().TimeElapsed, c.team.time_limit);
        EXPECT_EQ(room.open_forms(), (std::vector{FormId::frmBackGround, FormId::frmTimeUp}));
        EXPECT_TRUE(room.results().empty());
        EXPECT_TRUE(room.heard_and_forgotten().empty());
        room.seconds_pass(10);
        EXPECT_EQ(room.state().TimeElapsed, c.team.time_limit);
    }
}

TEST(Stopwatch, NothingCanBePlayedBeforeItIsStarted) {
    Classroom room;
    Pupil ann(room);
    ann.opens(kTiles);
    auto& board = room.form<frmSimpleKeyBoard>();
    auto& stopwatch = room.form<frmTimer>();
    EXPECT_EQ(stopwatch.Top, board.Top - stopwatch.Height) << "it stands on the board's upper edge";
    EXPECT_EQ(stopwatch.Left, board.Left);
    const std::string letter = board.DragKey[0].Tag;
    for (Form* form : std::vector<Form*>{&room.form<frmBackGround>(), &board, &stopwatch}) {
        ann.clicks_at({form->Left + 5, form->Top + form->Height - 5});
        EXPECT_EQ(room.desktop.active(), form);
        ann.types(letter);
    }
    const Point tile{board.Left + board.DragKey[0].Left + 9, board.Top + board.DragKey[0].Top + 9};
    room.display.move(tile), room.display.press(tile);
    EXPECT_FALSE(room.desktop.drag());
    room.display.release(tile);
    room.seconds_pass(100);
    EXPECT_EQ(room.state().KeysDone, 0);
    EXPECT_EQ(room.state().TimeElapsed, 0);
    EXPECT_FALSE(board.PanBorder.Visible);
    EXPECT_TRUE(room.sound.heard().empty());

    ann.starts_the_clock();
    EXPECT_FALSE(stopwatch.Timer_Start_De.Visible || stopwatch.Timer_Start_Pre.Visible) << "it starts only once";
    EXPECT_EQ(stopwatch.control_at(stopwatch.stopwatch.bounds().centre()), &stopwatch.stop1);
    for (Form* form : std::vector<Form*>{&room.form<frmBackGround>(), &board, &stopwatch}) {
        ann.clicks_at({form->Left + 5, form->Top + form->Height - 5});
        ann.types(board.DragKey[0].Tag.get());
    }
    EXPECT_EQ(room.state().KeysDone, 3) << "wherever the pupil has clicked last";
}

TEST(Stopwatch, StartsOnceAndWholeWhateverHappensMeanwhile) {
    for (const std::size_t yield : {0U, 1U}) {
        Classroom room;
        Pupil ann(room);
        ann.opens(kTiles, kGreenTeam);
        room.display.during_yield([&] { ann.starts_the_clock(); }, yield);
        ann.starts_the_clock();
        ASSERT_EQ(room.form<frmTimer>().dial.drawn().size(), 1U) << "pressed again in yield " << yield;
        EXPECT_EQ(room.form<frmTimer>().dial.drawn()[0].fill, kGreenTeam.colour);
        room.seconds_pass(1);
        EXPECT_EQ(room.state().TimeElapsed, 1);
        ann.presses(&frmSimpleKeyBoard::close_De);

        ann.picks_game(kTiles);
        ann.joins(kRedTeam);
        room.display.during_yield([&] { ann.presses(&frmSimpleKeyBoard::close_De); }, yield);
        ann.starts_the_clock();
        room.seconds_pass(100);
        EXPECT_EQ(room.open_forms(), (std::vector{FormId::frmBackGround, FormId::frmGames})) << "in yield " << yield;
        EXPECT_EQ(room.state().TimeElapsed, 0);
    }
}

TEST(Stopwatch, TheSameGameAgainCountsFromZeroForATeamChosenAnew) {
    Classroom room;
    Pupil ann(room);
    ann.begins(kTiles);
    room.seconds_pass(60);
    ann.presses(&frmTimeUp::PlayAgainDe);
    EXPECT_EQ(room.state().TimeElapsed, 0);
    ann.press(room.form<frmSettings>().Image3);
    ann.starts_the_clock();
    EXPECT_EQ(room.form<frmTimer>().dial.drawn()[0].fill, kYellowTeam.colour);
    room.seconds_pass(61);
    EXPECT_EQ(room.state().TimeElapsed, 61);
    ann.fills_keys(36);
    EXPECT_EQ(room.form<frmScore>().txtTime.Text, "1:01");
    EXPECT_EQ(room.form<frmScore>().txtpoints.Text, "49");
}

TEST(Stopwatch, TheTeamsPictureActsAsItIsPressed) {
    struct Case {
        Image frmSettings::*picture;
        int limit;
    };
    for (const Case& c : {Case{&frmSettings::Image1, 60}, Case{&frmSettings::Image3, 120},
                          Case{&frmSettings::Image4, 180}, Case{&frmSettings::Image2, 240}}) {
        Classroom room;
        Pupil ann(room);
        ann.comes_in();
        ann.picks_game(kTiles);
        auto& teams = room.form<frmSettings>();
        room.display.press(centre_on_screen(teams.*c.picture));
        EXPECT_TRUE(room.is_open(FormId::frmSimpleKeyBoard)) << "without a release";
        EXPECT_EQ(room.state().TimeLimit, c.limit);
        room.display.release({0, 0});
    }
}

}  // namespace
}  // namespace marrowfen
