#include "core/game_table.h"
#include "lesson.h"

namespace marrowfen {
namespace {

class Results : public testing::Test, protected Lesson {
protected:
    Results() : Lesson({"Ann", "Ben", "Cleo"}) {}

    /// Of earlier days.
    void keep(const std::vector<Kept>& earlier) {
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

TEST_F(Results, TellTheTimeAndTheShareOfItThatWasLeft) {
    struct Case {
        State::Whole limit, elapsed;
        const char *time, *points;
    };
    for (const Case& c : {Case{60, 0, "0:00", "100"},
                          {60, 59, "0:59", "1"},
                          {120, 1, "0:01", "99"},
                          {120, 60, "1:00", "50"},
                          {180, 70, "1:10", "61"},
                          {240, 239, "3:59", "0"},
                          {240, 108, "1:48", "55"},
                          {0, 0, "0:00", "0"},
                          {0, 754, "12:34", "754"}}) {
        room.state().TimeLimit = c.limit;
        room.state().TimeElapsed = c.elapsed;
        room.program.forms.show(FormId::frmScore);
        EXPECT_EQ(room.form<frmScore>().txtTime.Text, c.time) << c.elapsed << " of " << c.limit;
        EXPECT_EQ(room.form<frmScore>().txtpoints.Text, c.points) << c.elapsed << " of " << c.limit;
        room.program.forms.unload(FormId::frmScore);
    }
}

TEST(Result, IsKeptBeforeTheProgramCloses) {
    struct Case {
        bool disk_is_full, and_then_again;
        std::size_t kept;
    };
    for (const Case& c : {Case{false, false, 1}, {true, true, 0}, {true, false, 1}}) {
        Lesson lesson;
        Classroom& room = lesson.room;
        lesson.begins(7);
        lesson.gives_right_ones(36, Way::Mouse);
        room.engine.refuses_writes = c.disk_is_full;
        room.program.close_requested();
        EXPECT_EQ(room.display.ended(), !c.disk_is_full) << room.message();
        EXPECT_EQ(room.message().find("the disk is full") != std::string::npos, c.disk_is_full) << room.message();
        room.engine.refuses_writes = c.and_then_again;
        if (c.disk_is_full) room.program.close_requested();
        EXPECT_TRUE(room.display.ended()) << "at the second request in any case";
        EXPECT_EQ(room.results(), std::vector<Kept>(c.kept, {"Ann", "0:00", 60, 100, 7}));
    }
    Lesson playing;
    playing.begins(7);
    playing.room.program.close_requested();
    EXPECT_TRUE(playing.room.display.ended());
}

TEST_F(Results, OfOneGameAndTeamAreRankedByTheirPointsAndTheEarlierOfEqualsFirst) {
    keep({{"Ben", "0:30", 60, 50, 7},
          {"Ann", "0:03", 60, 95, 7},
          {"Cleo", "0:30", 60, 50, 7},
          {"Ben", "0:00", 60, 100, 7},
          {"Cleo", "0:01", 120, 99, 7},
          {"Cleo", "0:02", 60, 96, 8}});
    views(7);
    EXPECT_EQ(hall(), (Rows{"Ben 0:00 100", "Ann 0:03 95", "Ben 0:30 50", "Cleo 0:30 50"}));
    EXPECT_EQ(room.form<frmHalloffame>().TheDate[1].Text, "") << "a result without a date";
    ann.presses(&frmHalloffame::AnotherDe);
    views(7, &kBlueTeam);
    EXPECT_EQ(hall(), Rows{});
    EXPECT_EQ(room.form<frmHalloffame>().Label1.Caption, "Blue Team Hall Of Fame");
}

TEST_F(Results, OfATypingTestAreRankedByTheFewestSeconds) {
    keep({{"Ben", "1:23", 0, 83, 27}, {"Ann", "0:20", 0, 20, 27}, {"Cleo", "0:10", 0, 10, 28}});
    views(27, nullptr);
    EXPECT_EQ(hall(), (Rows{"Ann 0:20 20", "Ben 1:23 83"}));
    room.program.forms.unload(FormId::frmHalloffame);
    room.state().TemplateID = kOldTypingTest;
    room.program.forms.show(FormId::frmHalloffame);
    EXPECT_EQ(room.form<frmHalloffame>().Label17.Caption, "Typing Test");
    ann.presses(&frmHalloffame::PlayAgainDe);
    EXPECT_TRUE(room.is_open(FormId::frmTypingTest));
}

}  // namespace
}  // namespace marrowfen
