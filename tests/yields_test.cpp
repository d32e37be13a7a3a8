#include <set>

#include "core/game_table.h"
#include "lesson.h"
#include "store/store_builder.h"
#include "tables/picture_list.h"
#include "typing/frmTypingTest.h"

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

class Judging : public ::testing::Test, protected Lesson {
protected:
    [[nodiscard]] PictureBox& tile(int index) { return room.form<frmSimpleKeyBoard>().DragKey[index]; }
    void drags(PictureBox& tile) { ann.drags(tile, key(tile.Tag.get())); }
};

TEST_F(Judging, GivesWayToANewGameThatBeginsInAYield) {
    for (const int game : {14, 13, 25, 26, 18}) {
        switches(Phonics::Off);
        begins(game);
        std::string letter;
        room.display.during_yield([&] {
            goes_back_to_the_list();
            begins(26);
            letter = right_letter();
            ann.types(letter);
        });
        ann.types(wrong_letter());
        EXPECT_NE(right_letter(), letter) << game;
        EXPECT_EQ(room.heard_and_forgotten(), std::vector<std::string>{"magic.au"}) << game;
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
    spoil_store("UPDATE Templates SET Panels=4 WHERE Template_ID=18");
    begins(18);
    room.display.during_yield([this] { drags(tile(1)); });
    ann.types(tile(0).Tag.get());
    EXPECT_EQ(room.state().KeysDone, 2);

    room.display.during_yield([this] { drags(tile(0)); });  // the very tile that the key is just serving
    ann.types(tile(0).Tag.get());
    EXPECT_EQ(room.state().KeysDone, 3);

    room.display.during_yield([this] { ann.types(tile(0).Tag.get()); });
    drags(tile(2));
    EXPECT_EQ(room.state().KeysDone, 5);
}

TEST_F(Judging, EndsWithTheLastRightAnswer) {
    for (const Way way : {Way::SmallLetters, Way::Mouse}) {
        switches(Phonics::Off);
        begins(7);
        for (int n = 1; n < 36; ++n) gives(right_letter(), way);
        (void)room.heard_and_forgotten();
        room.display.during_yield([this] {
            ann.types("a1");
            room.seconds_pass(90);
        });
        gives(right_letter(), way);
        EXPECT_EQ(room.heard_and_forgotten(), std::vector<std::string>{"Applause.wav"});
        EXPECT_EQ(room.open_forms(), (std::vector{FormId::frmBackGround, FormId::frmScore}));
        goes_back_to_the_list();
    }
    EXPECT_EQ(room.results(), (std::vector<Kept>{{"Ann", "0:00", 60, 100, 7}, {"Ann", "0:00", 60, 100, 7}}));
}

TEST_F(Judging, AKeyThatComesAfterTheGameIsIgnored) {
    const auto types_on_the_backdrop = [this] {
        ann.clicks_at({15, 15});
        ann.types("abc123");
        EXPECT_EQ(room.heard_and_forgotten(), std::vector<std::string>{});
    };
    for (const int game : {14, 13, 25, 26, 7}) {
        begins(game);
        goes_back_to_the_list();
        types_on_the_backdrop();
        begins(game);
        room.seconds_pass(60);
        EXPECT_TRUE(room.is_open(FormId::frmTimeUp));
        types_on_the_backdrop();
        goes_back_to_the_list();
    }
    begins(26);
    while (plays()) gives(right_letter(), Way::Mixed);
    (void)room.heard_and_forgotten();
    types_on_the_backdrop();
}

TEST_F(Judging, TypingServesTheLowestTileOnShowUntilAllTenHaveGone) {
    spoil_store("UPDATE Templates SET Panels=9 WHERE Template_ID=18");
    begins(18);
    for (int n = 0; n < 36; ++n) {
        int lowest = 0;
        while (!tile(lowest).Visible) ++lowest;
        const auto done = room.state().KeysDone;
        if (lowest > 0) ann.types(tile(0).Tag.get());
        if (lowest < 9 && tile(lowest + 1).Visible) ann.types(tile(lowest + 1).Tag.get());
        EXPECT_EQ(room.state().KeysDone, done) << "letters of tiles that have gone, or come later, are wrong";
        ann.types(tile(lowest).Tag.get());
    }
    EXPECT_EQ(room.open_forms(), (std::vector{FormId::frmBackGround, FormId::frmScore}));
    goes_back_to_the_list();

    // With every third letter dragged from the other end.
    begins(18);
    for (int n = 0; n < 36; ++n) {
        int highest = 9;
        while (!tile(highest).Visible) --highest;
        if (n % 3 == 2) {
            drags(tile(highest));
        } else {
            ann.types(right_letter());
        }
    }
    EXPECT_EQ(room.open_forms(), (std::vector{FormId::frmBackGround, FormId::frmScore}));
}

TEST_F(Judging, DoesNotBeginBeforeTheClockIsStarted) {
    for (const int game : {14, 13, 25, 26, 7}) {
        opens(game);
        (void)room.heard_and_forgotten();
        ann.types(right_letter() + wrong_letter());
        for (const std::string& letter : {right_letter(), wrong_letter()}) {
            ann.clicks_at(centre_on_screen(key(letter)));
        }
        EXPECT_EQ(room.heard_and_forgotten(), std::vector<std::string>{});
        EXPECT_EQ(room.state().KeysDone, 0);
        EXPECT_EQ(shown_by(key("B").Picture), "Back\\Upper\\B.BMP") << "the board stands ready";
        goes_back_to_the_list();
    }
}

/// The key pictures that the build makes, in capitals: files are found without regard to case.
std::set<std::string> pictures_of_the_build() {
    const TemporaryFolder built;
    EXPECT_EQ(build_store_and_list(MARROWFEN_CONTENT_FOLDER, MARROWFEN_DRAWINGS_FOLDER, built.path() / "list",
                                   built.path() / "data.mdb"),
              std::vector<std::string>{});
    std::set<std::string> files;
    for (const ListedPicture& picture : read_picture_list(built.path() / "list")) {
        files.insert(in_capitals(picture.file));
    }
    return files;
}

TEST_F(Judging, EveryGameOfTheListCanBeLeftAndWonAndShowsWhatTheBuildMakes) {
    const auto entries = room.form<frmGames>().List1.entries();
    EXPECT_EQ(entries.size(), listed_games().size());
    const auto made = pictures_of_the_build();
    const auto look_at = [&](const Picture& picture) {
        if (picture.source() != Picture::Source::File) return;
        std::string file = in_capitals("Simple\\" + shown_by(picture));
        std::ranges::replace(file, '\\', '/');
        EXPECT_TRUE(made.contains(file)) << picture.name();
    };
    const auto look_around = [&] {
        for (const Form* form : room.desktop.visible_forms()) {
            for (const Control* control : form->controls()) {
                if (const auto* image = dynamic_cast<const Image*>(control)) look_at(image->Picture);
                if (const auto* box = dynamic_cast<const PictureBox*>(control)) look_at(box->Picture);
            }
        }
    };
    const auto begins_from_the_list = [&](const std::string& entry) {
        ann.double_clicks(room.form<frmGames>().List1, entry);
        look_around();
        if (room.is_open(FormId::frmTypingTest)) return ann.presses(&frmTypingTest::skip_de);
        ann.joins(kBlueTeam);
        ann.starts_the_clock();
        room.seconds_pass(2);
    };
    for (const std::string& entry : entries) {
        SCOPED_TRACE(entry);
        begins_from_the_list(entry);
        if (plays()) ann.types(wrong_letter());
        if (plays()) gives(right_letter(), Way::Mouse);
        goes_back_to_the_list();
        room.seconds_pass(300);
        EXPECT_EQ(room.open_forms(), (std::vector{FormId::frmBackGround, FormId::frmGames}));

        begins_from_the_list(entry);
        for (; plays() && !HasFailure(); look_around()) {
            gives(wrong_letter(), Way::Mixed);
            look_around();
            gives(right_letter(), Way::Mixed);
        }
        goes_back_to_the_list();
    }
    EXPECT_EQ(room.results().size(), entries.size() - 2) << "all but the typing tests";
}

}  // namespace

}  // namespace marrowfen
