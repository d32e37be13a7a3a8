#include "lesson.h"

namespace marrowfen {

namespace {

class FirstLettersGame : public ::testing::Test, protected Lesson {
protected:
    static constexpr int kFirstLetters = 26;
    static constexpr int kCards = 26;

    void script_cards(const std::vector<int>& drawn) {
        for (const int card : drawn) room.random.script_draw(card, kCards);
    }
    [[nodiscard]] std::string card() { return shown_by(room.form<frmPictureCard>().pic.Picture); }
    [[nodiscard]] static std::string picture_of(std::string_view word) {
        return "Back\\Pictures\\Flash\\" + std::string(word) + ".bmp";
    }
};

TEST_F(FirstLettersGame, EachOfThe26CardsComesOnceAndTheLastIsHeardBeforeTheResult) {
    struct Sounds {
        bool on;
        Phonics phonics;
    };
    for (const Sounds sounds : {Sounds{true, Phonics::On}, {true, Phonics::Off}, {false, Phonics::On}}) {
        for (const Way way : kWays) {
            SCOPED_TRACE(static_cast<int>(way));
            switches(sounds.phonics);
            room.state().SoundOn = sounds.on;
            begins(kFirstLetters);
            EXPECT_FALSE(room.is_open(FormId::frmWordsUsed));
            std::vector<std::string> cues;
            std::string letters;
            while (plays()) {
                const std::string letter = right_letter();
                const auto& marked = key(letter);
                const Given given = gives(letter, way);
                if (sounds.on && sounds.phonics == Phonics::On) {
                    cues.push_back("\\Phonics\\Lower_Case\\" + given.letter + ".wav");
                } else if (sounds.on) {
                    cues.emplace_back(given.typed ? "magic.au" : "Magic.au");
                }
                letters += letter;
                if (!plays()) break;
                EXPECT_EQ(in_capitals(shown_by(marked.Picture)), "LOWER\\" + letter + ".BMP");
            }
            EXPECT_EQ(room.heard_and_forgotten(), cues);
            EXPECT_EQ(room.open_forms(), (std::vector{FormId::frmBackGround, FormId::frmScore}));
            std::ranges::sort(letters);
            EXPECT_EQ(letters, "ABCDEFGHIJKLMNOPQRSTUVWXYZ");
            goes_back_to_the_list();
        }
    }
}

TEST_F(FirstLettersGame, AWrongLetterIsToldAsItWasGivenAndChangesNothing) {
    struct Case {
        Phonics phonics;
        Way way;
        std::vector<std::string> cues;
        std::size_t yields;
    };
    const std::vector<Case> cases{{Phonics::On, Way::Capitals, {"donkey.au"}, 2},
                                  {Phonics::On, Way::SmallLetters, {"donkey.au"}, 2},
                                  {Phonics::On, Way::Mouse, {}, 0},
                                  {Phonics::Off, Way::SmallLetters, {"donkey.au"}, 2},
                                  {Phonics::Off, Way::Mouse, {"Donkey.au"}, 1}};
    for (const Case& it : cases) {
        switches(it.phonics);
        script_cards({4});
        begins(kFirstLetters);
        for (const std::string letter : {"B", "3"}) {
            SCOPED_TRACE(letter);
            const Picture before = key(letter).Picture;
            const std::size_t yields = room.display.yields();
            gives(letter, it.way);
            EXPECT_EQ(room.display.yields() - yields, it.yields);
            EXPECT_EQ(room.heard_and_forgotten(), it.cues);
            EXPECT_EQ(key(letter).Picture, before);
            EXPECT_EQ(card(), picture_of("dog"));
        }
        ann.types(" \r.");
        EXPECT_EQ(room.heard_and_forgotten(), std::vector<std::string>{});
        goes_back_to_the_list();
    }
}

TEST_F(FirstLettersGame, HearsTheKeyboardButForWhileTheCardWasClickedLast) {
    begins(kFirstLetters);
    ann.press(room.form<frmPictureCard>().pic);
    const std::string letter = right_letter();
    ann.types(letter);
    EXPECT_EQ(room.heard_and_forgotten(), std::vector<std::string>{});
    const auto& board = room.form<frmSimpleKeyBoard>();
    ann.clicks_at({board.Left + 5, board.Top + 5});
    ann.types(letter);
    EXPECT_EQ(room.heard_and_forgotten().size(), 1U);
}

TEST_F(FirstLettersGame, ACardThatWasDrawnIsDrawnAgainUntilANewOneComes) {
    script_cards({26, 26, 24, 24, 26, 1});
    begins(kFirstLetters);
    EXPECT_EQ(card(), picture_of("zebra"));
    ann.types("z");
    EXPECT_EQ(card(), picture_of("xray"));
    ann.press(key("X"));
    EXPECT_EQ(card(), picture_of("apple"));
    EXPECT_EQ(room.random.unused(), 0U);
}

}  // namespace

}  // namespace marrowfen
