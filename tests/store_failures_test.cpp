// A store that can't be read or written for a moment: nothing is won, lost or kept twice by it, and somebody is told.

#include "lesson.h"
#include "pupils/frmDeletePupils.h"
#include "pupils/frmNewPupil.h"
#include "pupils/frmSelectGame.h"
#include "pupils/frmSettings.h"
#include "typing/frmTypingTest.h"

namespace marrowfen {

namespace {

using Entries = std::vector<std::string>;

/// A day at school: every form, and a game of every rule. What does not go at once is tried again.
class SchoolDay : public Lesson {
public:
    SchoolDay() {
        spoil_store(
            "DELETE FROM Templates WHERE Template_ID NOT IN (7, 13, 14, 25, 26, 27);"
            "DELETE FROM Words_Keystage1 WHERE word NOT IN (SELECT word FROM Words_Keystage1 AS w "
            "WHERE w.id=Words_Keystage1.id ORDER BY rowid LIMIT 3);"
            "DELETE FROM Sentences_Keystage1 WHERE rowid > 2;"
            "UPDATE Sentences_Keystage1 SET Sen=sen_id || ' big dogs ran.', Verb='ran', noun='dog', adjective='big'");
        ann.presses(&frmGames::BackDe);
        ann.sits_down("Ann");
    }

    void passes() {
        goes_to_the_first_screen();
        adds_a_pupil();
        removes_a_pupil();
        views_the_halls();
        for (const auto& [game, answers] : {std::pair{14, 7}, {13, 117}, {25, 18}, {26, 26}, {7, 36}}) {
            plays_to_the_end(game, answers);
        }
        types_the_sentence();
    }
    int told = 0;  ///< messages so far

private:
    /// Does something until it has led there.
    void until(const std::function<bool()>& there, const std::function<void()>& act) {
        for (int tries = 0; !there(); ++tries) {
            if (tries == 9) throw std::logic_error("this can't be done any more");
            act();
            answers_message();
        }
    }
    void until_open(FormId form, const std::function<void()>& act) {
        until([=, this] { return room.is_open(form); }, act);
    }
    bool answers_message() {
        if (!room.is_open(FormId::frmErrmsg)) return false;
        ++told;
        EXPECT_NE(room.message().find("the d"), std::string::npos) << room.message();
        EXPECT_EQ(room.desktop.visible_forms().back(), &room.form<frmErrmsg>());
        ann.presses(&frmErrmsg::ContinueDe);
        EXPECT_FALSE(room.is_open(FormId::frmErrmsg)) << "a message that comes back for ever";
        return true;
    }
    template <class F>
    void looks_away_and_back(Label F::*place) {
        ann.clicks_at({15, 15});
        if (!answers_message()) ann.press(room.form<F>().*place);
    }
    void expects_pupils(const Entries& pupils) {
        auto& list = room.form<frmSelectGame>().cmbPupils;
        until([&] { return list.entries() == pupils; }, [this] { looks_away_and_back(&frmSelectGame::Label11); });
    }
    void comes_back_to_the_games() {
        answers_message();
        auto& list = room.form<frmGames>().List1;
        until([&] { return list.entries().size() == 6; }, [this] { looks_away_and_back(&frmGames::Label1); });
    }
    void goes_to_the_first_screen() {
        ann.presses(&frmGames::BackDe);
        EXPECT_EQ(room.form<frmSelectGame>().cmbPupils.entries(), Entries{"Ann"}) << "the list that it had";
        answers_message();
        expects_pupils({"Ann"});
    }
    void adds_a_pupil() {
        ann.presses(&frmSelectGame::NewPlay_De);
        ann.types("Ben");
        until_open(FormId::frmGames, [this] {
            EXPECT_EQ(room.state().PupilID, 1) << "nobody plays under a name that is not kept";
            ann.presses(&frmNewPupil::NextDe);
        });
        comes_back_to_the_games();
        ann.presses(&frmGames::BackDe);
        answers_message();
        expects_pupils({"Ann", "Ben"});
    }
    void removes_a_pupil() {
        until_open(FormId::frmDeletePupils, [this] { ann.presses_alt_d(); });
        auto& list = room.form<frmDeletePupils>().lbkids;
        EXPECT_EQ(list.entries(), (Entries{"1 - Ann", "2 - Ben"}));
        ann.selects(list, "2 - Ben");
        until([&] { return list.entries() == Entries{"1 - Ann"}; },
              [this] { ann.presses(&frmDeletePupils::DeleteDe); });
        ann.presses(&frmDeletePupils::CloseDe);
        answers_message();
        expects_pupils({"Ann"});
        until_open(FormId::frmGames, [this] { ann.sits_down("Ann"); });
        comes_back_to_the_games();
    }
    void views_the_halls() {
        for (const int game : {7, 27}) {
            ann.selects(room.form<frmGames>().List1, ann.entry_of(game));
            until([this] { return !room.is_open(FormId::frmGames); }, [this] { ann.presses(&frmGames::hall_De); });
            answers_message();
            const std::string name = room.look_up("Templates", "GameName", where_number("Template_ID", game));
            if (room.is_open(FormId::frmSettings)) {
                EXPECT_TRUE(room.form<frmSettings>().lblIT.Caption->ends_with("table for " + name));
                until_open(FormId::frmHalloffame, [this] { ann.joins(kRedTeam); });
            }
            leaves_the_hall(name, 0);
        }
    }
    void leaves_the_hall(const std::string& name, int rows) {
        answers_message();
        const auto is_full = [&] {
            auto& hall = room.form<frmHalloffame>();
            for (int row = 1; row <= rows; ++row) {
                if (hall.Pname[row].Text != "Ann") return false;
            }
            return hall.Label17.Caption == name;
        };
        until(is_full, [this] { looks_away_and_back(&frmHalloffame::Label12); });
        ann.presses(&frmHalloffame::AnotherDe);
        comes_back_to_the_games();
    }
    void plays_to_the_end(int game, int answers) {
        SCOPED_TRACE(game);
        until_open(FormId::frmSimpleKeyBoard, [&] {
            until_open(FormId::frmSettings, [&] { ann.picks_game(game); });
            ann.joins(kRedTeam);
            if (answers_message() && room.is_open(FormId::frmGames)) comes_back_to_the_games();
        });
        ann.starts_the_clock();
        int given = 0;
        while (plays() && given < 200) {
            gives(right_letter(), Way::Mixed);
            if (!answers_message() || !plays()) ++given;
        }
        EXPECT_EQ(given, answers) << "only whoever gives them all has won";
        keeps_the_result({"Ann", "0:00", 60, 100, game});
    }
    void types_the_sentence() {
        until_open(FormId::frmTypingTest, [this] { ann.picks_game(27); });
        answers_message();
        ann.types("the quick brown fox jumps over the lazy dog");
        keeps_the_result({"Ann", "0:00", 0, 0, 27});
    }
    void keeps_the_result(const Kept& result) {
        kept_.push_back(result);
        answers_message();
        ASSERT_TRUE(room.is_open(FormId::frmScore));
        until([this] { return room.form<frmScore>().Label4.Caption == "Ann your time was:"; },
              [this] { looks_away_and_back(&frmScore::Label1); });
        until_open(FormId::frmHalloffame, [this] { ann.presses(&frmScore::HallDe); });
        leaves_the_hall(room.look_up("Templates", "GameName", where_number("Template_ID", result.game)), 1);
        EXPECT_EQ(room.results(), kept_);
    }

    std::vector<Kept> kept_;
};

TEST(AStoreThatFailsForAMoment, WinsNoGameLosesNoResultAndIsTold) {
    const auto passes = [](SchoolDay& day, std::size_t answered, std::size_t refused) {
        SCOPED_TRACE(std::to_string(refused) + " refused after " + std::to_string(answered));
        day.room.engine.refuse_after(answered, refused);
        EXPECT_NO_THROW(day.passes());
        EXPECT_EQ(day.told > 0, refused > 0);
        EXPECT_LE(day.told, static_cast<int>(refused));
    };
    SchoolDay quiet;
    passes(quiet, 0, 0);
    for (const std::size_t refused : {1U, 4U}) {
        for (std::size_t answered = 0; answered < quiet.room.engine.asked(); answered += refused) {
            SchoolDay day;
            passes(day, answered, refused);
        }
    }
}

}  // namespace

}  // namespace marrowfen
