#include "lesson.h"

namespace marrowfen {

namespace {

/// A game that can be played to its end again and again, each time with the same draws and the same answers, and a
/// wrong one now and then at first.
class Play : public Lesson {
public:
    Play(int game, Way way, Phonics phonics) : game_(game), way_(way) {
        switches(phonics);
        spoil_store(
            "DELETE FROM Words_Keystage1 WHERE word NOT IN (SELECT word FROM Words_Keystage1 AS w "
            "WHERE w.id=Words_Keystage1.id ORDER BY rowid LIMIT 3)");
    }
    void begins_anew() {
        goes_back_to_the_list();
        opens(14);  // whatever the game before has left in the list of rows played
        goes_back_to_the_list();
        room.random = {};
        answers = 0;
        begins(game_);
    }
    void plays_on() {
        while (plays()) {
            if (answers < 3) gives(wrong_letter(), way_);
            if (!plays()) return;
            ++answers;
            gives(right_letter(), way_);
        }
    }
    [[nodiscard]] std::string name() const {
        return "game " + std::to_string(game_) + ", way " + std::to_string(static_cast<int>(way_));
    }
    int answers = 0;  ///< right ones so far

private:
    int game_;
    Way way_;
};

/// Plays every game that a rule judges once for each of its yields, and lets the event happen in that one. `expected`
/// is told whether the last right answer had been given by then.
void in_every_yield(const std::function<void(Play&)>& event, const std::function<void(Play&, bool won)>& expected) {
    for (const int game : {14, 13, 25, 26, 18}) {
        for (const Way way : {Way::SmallLetters, Way::Mouse}) {
            for (const Phonics phonics : {Phonics::On, Phonics::Off}) {
                const bool sounds_letters = game == 26 || game == 18;
                if (phonics == Phonics::Off && !sounds_letters) continue;
                Play play(game, way, phonics);
                play.begins_anew();
                const std::size_t before = play.room.display.yields();
                play.plays_on();
                ASSERT_TRUE(play.room.is_open(FormId::frmScore));
                const std::size_t yields = play.room.display.yields() - before;
                const int answers = play.answers;
                for (std::size_t yield = 0; yield < yields && !::testing::Test::HasFailure(); ++yield) {
                    SCOPED_TRACE(play.name() + ", yield " + std::to_string(yield));
                    play.begins_anew();
                    bool won = false;
                    const auto happens = [&] {
                        won = play.answers == answers;
                        event(play);
                        (void)play.room.heard_and_forgotten();
                    };
                    play.room.display.during_yield(happens, yield);
                    play.plays_on();
                    expected(play, won);
                }
            }
        }
    }
}

TEST(EveryYieldOfEveryRule, MayBeTheOneInWhichTheTimeRunsOut) {
    in_every_yield([](Play& play) { play.room.seconds_pass(60); },
                   [](Play& play, bool won) {
                       const FormId next = won ? FormId::frmScore : FormId::frmTimeUp;
                       EXPECT_EQ(play.room.open_forms(), (std::vector{FormId::frmBackGround, next}));
                       EXPECT_TRUE(won || play.room.heard_and_forgotten().empty());
                   });
}

TEST(EveryYieldOfEveryRule, MayBeTheOneInWhichThePupilLeaves) {
    const auto types_and_leaves = [](Play& play) {
        play.ann.types("q");
        play.ann.presses(&frmSimpleKeyBoard::close_De);
    };
    in_every_yield(types_and_leaves, [](Play& play, bool) {
        EXPECT_EQ(play.room.open_forms(), (std::vector{FormId::frmBackGround, FormId::frmGames}));
        EXPECT_TRUE(play.room.heard_and_forgotten().empty());
    });
}

class Judging : public ::testing::Test, protected Lesson {};

TEST_F(Judging, GivesWayToANewGameThatBeginsInAYield) {
    for (const int game : {14, 13, 25, 26, 18}) {
        switches(Phonics::Off);
        begins(game);
        const std::size_t before = room.display.yields();
        ann.types(wrong_letter());
        const std::size_t yields = room.display.yields() - before;
        for (std::size_t yield = 0; yield < yields; ++yield) {
            goes_back_to_the_list();
            begins(game);
            std::string letter;
            room.display.during_yield(
                [&] {
                    ann.types(wrong_letter());  // which waits, and is nobody's any more
                    goes_back_to_the_list();
                    begins(26);
                    letter = right_letter();
                    ann.types(letter);
                },
                yield);
            ann.types(wrong_letter());
            EXPECT_NE(right_letter(), letter) << game << ", yield " << yield;
            EXPECT_EQ(room.heard_and_forgotten(), std::vector<std::string>{"magic.au"}) << game << ", yield " << yield;
        }
        goes_back_to_the_list();
    }
}

TEST_F(Judging, OutlivesTheEndOfTheProgramInAYield) {
    begins(26);
    room.display.during_yield([this] {
        room.seconds_pass(60);
        ann.presses(&frmTimeUp::Exitde);
    });
    ann.types(wrong_letter());
    EXPECT_TRUE(room.display.ended());
    EXPECT_EQ(room.open_forms(), std::vector<FormId>{});
}

TEST_F(Judging, AKeyAndAClickWaitForTheLetterBeforeThemAndAreJudgedOnce) {
    for (const std::size_t yield : {0U, 1U}) {
        begins(14);
        const std::string left = room.form<frmWord>().Label1.Caption;
        room.display.during_yield(
            [&] {
                ann.types("0");
                ann.press(key("1"));
                EXPECT_EQ(shown_by(room.form<frmWord>().Image1.Picture), "Upper\\2.bmp");
                EXPECT_EQ(room.sound.heard().size(), 1U);
            },
            yield);
        ann.types("2");
        EXPECT_EQ(room.heard_and_forgotten(), (std::vector<std::string>{"donkey.au", "donkey.au", "Donkey.au"}));
        EXPECT_EQ(shown_by(room.form<frmWord>().Image1.Picture), "Upper\\1.bmp");
        EXPECT_EQ(room.form<frmWord>().Label1.Caption.get(), left);
        goes_back_to_the_list();
    }
}

TEST_F(Judging, LettersThatComeWhileAWordIsBeingFinishedBelongToTheNextWord) {
    for (const int card : {3, 4, 7}) room.random.script_draw(card, 26);  // cat, dog, gate
    begins(13);
    room.display.during_yield([this] { ann.types("do"); }, 1);
    ann.types("cat");
    EXPECT_EQ(found(), "do");
    ann.types("g");
    EXPECT_EQ(asked_word(), "gate");
}

TEST_F(Judging, ATileThatIsDroppedWaitsAndMeansTheLetterThatWasLetGo) {
    begins_with_tiles(18, 5);
    room.display.during_yield([this] { drags_home(tile(1)); });
    ann.types(tile(0).Tag.get());
    EXPECT_EQ(room.state().KeysDone, 2);

    room.display.during_yield([this] { drags_home(tile(0)); });  // the very tile that the key is just serving
    ann.types(tile(0).Tag.get());
    EXPECT_EQ(room.state().KeysDone, 3);

    room.display.during_yield([this] { ann.types(tile(0).Tag.get()); });
    drags_home(tile(2));
    EXPECT_EQ(room.state().KeysDone, 5);
}

}  // namespace

}  // namespace marrowfen
