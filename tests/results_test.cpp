#include <sqlite3.h>

#include <functional>

#include "board/frmSimpleKeyBoard.h"
#include "classroom.h"
#include "content/frmPictureCard.h"
#include "content/frmSentence.h"
#include "content/frmWord.h"
#include "content/frmWordsUsed.h"
#include "core/game_table.h"
#include "pupils/frmDeletePupils.h"
#include "pupils/frmErrmsg.h"
#include "pupils/frmGames.h"
#include "pupils/frmSelectGame.h"
#include "pupils/frmSettings.h"
#include "results/frmHalloffame.h"
#include "results/frmScore.h"
#include "typing/frmTypingTest.h"

namespace marrowfen {
namespace {

constexpr int kTiles = 7;

/// A classroom with results of earlier days.
struct School {
    Classroom room{{"Ann", "Ben", "Cleo"}};
    Pupil ann{room};

    explicit School(const std::vector<Kept>& earlier = {}) {
        const auto rows = room.store().open("Hall_of_Fame");
        for (const Kept& result : earlier) {
            EXPECT_FALSE(rows->add_row());
            rows->set_field("Pupil_id", std::int64_t{result.pupil == "Ann" ? 1 : result.pupil == "Ben" ? 2 : 3});
            rows->set_field("TimeTaken", result.time);
            rows->set_field("TimeLimit", std::int64_t{result.limit});
            rows->set_field("Points", std::int64_t{result.points});
            rows->set_field("GameID", std::int64_t{result.game});
            EXPECT_FALSE(rows->update());
        }
        ann.comes_in();
    }
    void plays(const Team& team) {
        ann.picks_game(kTiles);
        ann.joins(team);
        ann.starts_the_clock();
    }
    void removes(const std::string& pupil) {
        ann.presses(&frmGames::BackDe);
        ann.presses_alt_d();
        ann.selects(room.form<frmDeletePupils>().lbkids, pupil);
        ann.presses(&frmDeletePupils::DeleteDe);
        ann.presses(&frmDeletePupils::CloseDe);
    }
    void views(int game, const Team* team = &kRedTeam) {
        ann.selects(room.form<frmGames>().List1, ann.entry_of(game));
        ann.presses(&frmGames::hall_De);
        if (team != nullptr) ann.joins(*team);
    }
    /// The rows on show: name, time, points.
    [[nodiscard]] std::vector<std::string> hall() {
        std::vector<std::string> rows;
        auto& form = room.form<frmHalloffame>();
        for (int i = 1; i <= 10; ++i) {
            if (form.Pname[i].Text->empty() && form.Points[i].Text->empty()) continue;
            EXPECT_EQ(static_cast<int>(rows.size()), i - 1) << "no row stays empty between two";
            rows.push_back(form.Pname[i].Text.get() + " " + form.Ptime[i].Text.get() + " " + form.Points[i].Text.get());
        }
        return rows;
    }
};

using Rows = std::vector<std::string>;

TEST(Score, TellsTheTimeAndTheShareOfItThatWasLeft) {
    struct Case {
        State::Whole limit, elapsed;
        const char *time, *points;
    };
    School school;
    for (const Case& c : std::vector<Case>{{60, 0, "0:00", "100"},
                                           {60, 59, "0:59", "1"},
                                           {60, 30, "0:30", "50"},
                                           {120, 1, "0:01", "99"},
                                           {120, 60, "1:00", "50"},
                                           {180, 70, "1:10", "61"},
                                           {240, 239, "3:59", "0"},
                                           {240, 108, "1:48", "55"},
                                           {0, 0, "0:00", "0"},
                                           {0, 83, "1:23", "83"},
                                           {0, 754, "12:34", "754"}}) {
        school.room.state().TimeLimit = c.limit;
        school.room.state().TimeElapsed = c.elapsed;
        school.room.program.forms.show(FormId::frmScore);
        auto& form = school.room.form<frmScore>();
        EXPECT_EQ(form.Label4.Caption, "Ann your time was:");
        EXPECT_EQ(form.txtTime.Text, c.time) << c.elapsed << " of " << c.limit;
        EXPECT_EQ(form.txtpoints.Text, c.points) << c.elapsed << " of " << c.limit;
        school.room.program.forms.unload(FormId::frmScore);
    }
}

TEST(Score, KeepsTheResultAsItIsSavedAndShowsItInTheHall) {
    School school;
    Classroom& room = school.room;
    school.plays(kYellowTeam);
    room.seconds_pass(36);
    school.ann.fills_keys(36);
    EXPECT_TRUE(room.results().empty()) << "nothing is kept before the button is pressed";
    room.clock.date = std::chrono::year{2027} / 1 / 31;
    room.clock.time = std::chrono::hours{13} + std::chrono::seconds{7};
    school.ann.presses(&frmScore::HallDe);

    EXPECT_EQ(room.results(), (std::vector<Kept>{{"Ann", "0:36", 120, 70, kTiles}}));
    const auto rows = room.store().open("Hall_of_Fame");
    ASSERT_TRUE(rows->move_first().value());
    EXPECT_EQ(as_text(rows->field("TheDate")), "2027-01-31") << "the moment of saving, not of playing";
    EXPECT_EQ(as_text(rows->field("timeplayed")), "13:00:07");
    EXPECT_EQ(school.hall(), Rows{"Ann 0:36 70"});
    auto& hall = room.form<frmHalloffame>();
    EXPECT_EQ(hall.TheDate[1].Text, "31/1/2027");
    EXPECT_EQ(hall.Pname[1].ForeColor, kBlack);
    EXPECT_EQ(hall.Label1.Caption, "Yellow Team Hall Of Fame");
    EXPECT_TRUE(hall.PlayAgainDe.Visible);
    school.ann.presses(&frmHalloffame::PlayAgainDe);
    EXPECT_EQ(room.state().TimeElapsed, 0);
    EXPECT_EQ(room.state().TemplateID, kTiles);
}

TEST(Score, IsKeptBeforeTheProgramCloses) {
    struct Case {
        bool disk_is_full, and_then_again;
        std::size_t kept;
    };
    for (const Case& c : {Case{false, false, 1}, {true, true, 0}, {true, false, 1}}) {
        School school;
        Classroom& room = school.room;
        school.plays(kRedTeam);
        school.ann.fills_keys(36);
        room.engine.refuses_writes = c.disk_is_full;
        room.program.close_requested();
        EXPECT_EQ(room.display.ended(), !c.disk_is_full) << room.message();
        EXPECT_EQ(room.message().find("the disk is full") != std::string::npos, c.disk_is_full) << room.message();
        room.engine.refuses_writes = c.and_then_again;
        if (c.disk_is_full) room.program.close_requested();
        EXPECT_TRUE(room.display.ended()) << "at the second request in any case";
        EXPECT_EQ(room.results(), std::vector<Kept>(c.kept, {"Ann", "0:00", 60, 100, kTiles}));
    }
    School playing;
    playing.plays(kRedTeam);
    playing.room.program.close_requested();
    EXPECT_TRUE(playing.room.display.ended());
}

/// Counts the SELECTs of every connection that is opened during its life.
class SelectCounter {
public:
    SelectCounter() {
        count_ = 0;
        sqlite3_auto_extension(reinterpret_cast<void (*)()>(&watch));
    }
    ~SelectCounter() { sqlite3_reset_auto_extension(); }
    SelectCounter(const SelectCounter&) = delete;
    SelectCounter& operator=(const SelectCounter&) = delete;
    int during(const std::function<void()>& action) {
        const int before = count_;
        action();
        return count_ - before;
    }

private:
    static int watch(sqlite3* connection, const char**, const struct sqlite3_api_routines*) {
        return sqlite3_trace_v2(connection, SQLITE_TRACE_STMT, &count, nullptr);
    }
    static int count(unsigned, void*, void*, void* sql) {
        count_ += std::string_view(static_cast<const char*>(sql)).starts_with("SELECT") ? 1 : 0;
        return 0;
    }
    static inline int count_ = 0;
};

TEST(Results, ReadNoMoreThanTheyNeed) {
    SelectCounter selects;
    School school(std::vector<Kept>(12, {"Ben", "0:10", 60, 20, kTiles}));
    Program& program = school.room.program;
    EXPECT_EQ(selects.during([&] { EXPECT_NE(program.open_rows("Pupils"), nullptr); }), 0);
    EXPECT_EQ(selects.during([&] {
        EXPECT_EQ(as_whole(program.LookupField("Pupils", "Pupil_ID", "PupilName='Ben'").value()), 2);
    }),
              1);
    school.plays(kRedTeam);
    school.ann.fills_keys(36);
    EXPECT_EQ(selects.during([&] { program.forms.show(FormId::frmHalloffame); }), 1 + 1 + 10) << "heading, list, names";
    EXPECT_EQ(school.hall().size(), 10U);
    EXPECT_EQ(selects.during([&] { program.close_requested(); }), 0)
        << "a result is kept without a look at the old ones";
    EXPECT_EQ(school.room.results().size(), 13U);
}

TEST(HallOfFame, RanksTheMostPointsOfOneGameAndTeamFirstAndTheEarlierOfEquals) {
    School school({{"Ben", "0:30", 60, 50, kTiles},
                   {"Ann", "0:03", 60, 95, kTiles},
                   {"Cleo", "0:30", 60, 50, kTiles},
                   {"Ann", "0:59", 60, 1, kTiles},
                   {"Ben", "0:00", 60, 100, kTiles},
                   {"Cleo", "0:01", 120, 99, kTiles},
                   {"Cleo", "0:02", 60, 96, kTiles + 1}});
    school.views(kTiles);
    EXPECT_EQ(school.hall(), (Rows{"Ben 0:00 100", "Ann 0:03 95", "Ben 0:30 50", "Cleo 0:30 50", "Ann 0:59 1"}));
    EXPECT_EQ(school.room.form<frmHalloffame>().TheDate[1].Text, "") << "a result without a date";
    school.ann.presses(&frmHalloffame::AnotherDe);
    school.views(kTiles, &kYellowTeam);
    EXPECT_EQ(school.hall(), Rows{"Cleo 0:01 99"});
    school.ann.presses(&frmHalloffame::AnotherDe);
    school.views(kTiles, &kBlueTeam);
    EXPECT_EQ(school.hall(), Rows{});
    EXPECT_EQ(school.room.form<frmHalloffame>().Label1.Caption, "Blue Team Hall Of Fame");
}

TEST(HallOfFame, RanksTheFewestSecondsOfATypingTestFirst) {
    School school({{"Ben", "1:23", 0, 83, 27}, {"Ann", "0:20", 0, 20, 27}, {"Cleo", "0:10", 0, 10, 28}});
    school.views(27, nullptr);
    EXPECT_EQ(school.hall(), (Rows{"Ann 0:20 20", "Ben 1:23 83"}));
    auto& hall = school.room.form<frmHalloffame>();
    EXPECT_EQ(hall.Label1.Caption, " Team Hall Of Fame");
    school.room.program.forms.unload(FormId::frmHalloffame);
    school.room.state().TemplateID = kOldTypingTest;
    school.room.program.forms.show(FormId::frmHalloffame);
    EXPECT_EQ(school.room.form<frmHalloffame>().Label17.Caption, "Typing Test");
    school.ann.presses(&frmHalloffame::PlayAgainDe);
    EXPECT_TRUE(school.room.form<frmTypingTest>().Keys[0].Picture->name().ends_with("\\Back\\upper\\A.BMP"));
}

TEST(HallOfFame, ShowsTenResultsAndNoMore) {
    std::vector<Kept> twelve;
    for (int points = 1; points <= 12; ++points) twelve.push_back({"Ben", "0:10", 60, points, kTiles});
    School school(twelve);
    school.views(kTiles);
    const auto rows = school.hall();
    ASSERT_EQ(rows.size(), 10U);
    EXPECT_EQ(rows.front(), "Ben 0:10 12");
    EXPECT_EQ(rows.back(), "Ben 0:10 3");
}

TEST(HallOfFame, KeepsTheResultsOfARemovedPupilUnderNoName) {
    School school({{"Ann", "0:10", 60, 83, kTiles}, {"Cleo", "0:20", 60, 66, kTiles}});
    school.removes("1 - Ann");
    school.room.program.forms.show(FormId::frmScore);
    EXPECT_EQ(school.room.form<frmScore>().Label4.Caption, "0 your time was:");
    school.room.program.forms.unload(FormId::frmScore);
    school.ann.sits_down("Cleo");
    school.views(kTiles);
    EXPECT_EQ(school.hall(), (Rows{"0 0:10 83", "Cleo 0:20 66"}));
}

TEST(Results, TheFormsOfAGameStandRoundTheBoard) {
    School school;
    Classroom& room = school.room;
    school.ann.picks_game(14);
    school.ann.joins(kRedTeam);
    const auto& board = room.form<frmSimpleKeyBoard>();
    const auto& word = room.form<frmWord>();
    EXPECT_EQ(word.Left, room.desktop.screen().width - word.Width);
    EXPECT_EQ(word.Top, 0);
    const auto& found = room.form<frmWordsUsed>();
    EXPECT_EQ(found.Left, board.Left);
    EXPECT_EQ(found.Width, board.Width);
    EXPECT_EQ(found.Top, board.Top + board.Height - 100);
    school.ann.presses(&frmSimpleKeyBoard::close_De);
    school.ann.picks_game(25);
    school.ann.joins(kRedTeam);
    const auto& sentence = room.form<frmSentence>();
    EXPECT_EQ(sentence.Left, room.desktop.screen().width - sentence.Width);
    EXPECT_EQ(sentence.Top, 0);
    school.ann.presses(&frmSimpleKeyBoard::close_De);
    school.ann.picks_game(13);
    school.ann.joins(kRedTeam);
    const auto& above = room.form<frmSimpleKeyBoard>();
    const auto& card = room.form<frmPictureCard>();
    EXPECT_EQ(card.Top + card.Height, above.Top);
    EXPECT_EQ(card.Left + card.Width, above.Left + above.Width - 130);
}

TEST(Results, AnotherResolutionCentresWhatIsOnTheScreen) {
    School school({{"Ben", "0:10", 60, 83, kTiles}});
    Classroom& room = school.room;
    school.plays(kRedTeam);
    room.display.resize({20480, 11520});
    const auto& board = *room.program.forms.find(FormId::frmSimpleKeyBoard);
    const auto& stopwatch = *room.program.forms.find(FormId::frmTimer);
    EXPECT_EQ(board.Left, (20480 - board.Width) / 2);
    EXPECT_EQ(stopwatch.Left, board.Left);
    EXPECT_EQ(stopwatch.Top, board.Top - stopwatch.Height);
    school.ann.fills_keys(36);
    room.display.resize({15360, 11520});
    auto& score = room.form<frmScore>();
    EXPECT_EQ(score.Left, (15360 - score.Width) / 2);
    EXPECT_EQ(score.txtpoints.Text, "100");
    school.ann.presses(&frmScore::HallDe);
    room.display.resize({15360, 12288});
    EXPECT_EQ(school.hall(), (Rows{"Ann 0:00 100", "Ben 0:10 83"}));
    school.ann.presses(&frmHalloffame::AnotherDe);
    EXPECT_TRUE(room.is_open(FormId::frmGames));
}

}  // namespace
}  // namespace marrowfen
