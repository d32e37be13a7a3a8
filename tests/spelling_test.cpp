#include "lesson.h"

namespace marrowfen {

namespace {

class PictureSpellingGame : public ::testing::Test, protected Lesson {
protected:
    [[nodiscard]] std::string card() { return shown_by(room.form<frmPictureCard>().pic.Picture); }
};

TEST_F(PictureSpellingGame, TheLettersOfAppleAreJudgedByTheirPlaces) {
    struct Letter {
        std::string letter, typed, clicked;  // and what is shown after it
    };
    const std::vector<Letter> letters{{"a", "a", "A"},       {"p", "ap", "AP"},     {"x", "AP", "AP"},
                                      {"1", "AP", "AP"},     {"p", "APp", "APP"},   {" ", "APp", "APP"},
                                      {"l", "APpl", "APPL"}, {"p", "APPL", "APPL"}, {"e", "", ""}};
    for (const bool clicks : {false, true}) {
        room.random.script_draw(1, 26);
        begins(13);
        std::vector<std::string> shown_while_wrong;
        const auto look = [&] { shown_while_wrong.push_back(found()); };
        for (const std::size_t yield : {0U, 2U, 4U}) room.display.during_yield(look, yield);
        for (const Letter& it : letters) {
            SCOPED_TRACE(it.letter);
            EXPECT_EQ(card(), "Back\\Pictures\\Flash\\apple.bmp");
            if (!clicks) {
                ann.types(it.letter);
            } else if (it.letter != " ") {
                ann.press(key(it.letter));
            }
            EXPECT_EQ(found(), clicks ? it.clicked : it.typed);
        }
        const std::string wrong = clicks ? "Donkey.au" : "donkey.au";
        EXPECT_EQ(room.heard_and_forgotten(),
                  (std::vector{wrong, wrong, wrong, std::string(clicks ? "M" : "m") + "agic.au"}));
        EXPECT_EQ(shown_while_wrong, clicks ? (std::vector<std::string>{"APX", "AP1", "APPLP"})
                                            : (std::vector<std::string>{"apx", "AP1", "APplp"}));
        EXPECT_NE(card(), "Back\\Pictures\\Flash\\apple.bmp");
        goes_back_to_the_list();
    }
}

class SentenceGame : public ::testing::Test, protected Lesson {
protected:
    struct Row {
        std::string sentence;
        std::array<std::string, 3> words;
    };
    static constexpr std::array<const char*, 3> kClasses{"Verb", "Noun", "Adjective"};

    [[nodiscard]] std::vector<Row> rows(int game) {
        std::vector<Row> all;
        const auto sentences = room.store().open(game == 25 ? "Sentences_Keystage1" : "Sentences_Keystage2");
        for (auto next = sentences->move_first(); next.value(); next = sentences->move_next()) {
            Row row{as_text(sentences->field("Sen")), {}};
            for (std::size_t i = 0; i < 3; ++i) row.words.at(i) = as_text(sentences->field(kClasses.at(i)));
            all.push_back(row);
        }
        return all;
    }
    /// Rows that are drawn in this order, the last of which is taken, and one of its classes. Counted from 1.
    void script_sentence(const std::vector<int>& drawn, std::size_t count, int word_class) {
        for (const int row : drawn) room.random.script_draw(row, static_cast<int>(count));
        room.random.script_draw(word_class, 3);
    }
    [[nodiscard]] frmSentence& card() { return room.form<frmSentence>(); }
    void spells_the_word(Way way) { gives_right_ones(static_cast<int>(asked_word().size() - found().size()), way); }
};

TEST_F(SentenceGame, ARedrawnSentenceIsNotHeldAgainstTheEntriesAlreadyPassed) {
    const std::vector<std::vector<int>> draws{{5}, {5}, {5, 7}, {7, 5}, {5, 7, 5, 9}, {9, 9}};
    const auto all = rows(25);
    for (const auto& drawn : draws) script_sentence(drawn, all.size(), 2);
    begins(25);
    for (const auto& drawn : draws) {
        EXPECT_EQ(card().Sentence.Text.get(), all.at(static_cast<std::size_t>(drawn.back() - 1)).sentence);
        spells_the_word(Way::Mixed);
    }
    EXPECT_TRUE(room.is_open(FormId::frmScore));
}

TEST_F(SentenceGame, TheGroupsOfARhymingGameBeforeItCountAsSentencesPlayed) {
    opens(14);  // leaves 1 to 7 in the list
    goes_back_to_the_list();
    const auto all = rows(29);
    script_sentence({3}, all.size(), 1);
    script_sentence({3, 4, 5, 2}, all.size(), 3);
    begins(29);
    spells_the_word(Way::Mouse);
    EXPECT_EQ(card().Sentence.Text.get(), all.at(1).sentence);
}

TEST_F(SentenceGame, ASentenceWithAnEmptyFieldIsPassedOver) {
    const auto all = rows(25);
    const auto count = static_cast<int>(all.size());
    spoil_store("UPDATE Sentences_Keystage1 SET adjective='' WHERE rowid=2 OR rowid=" + std::to_string(count));
    script_sentence({2}, all.size(), 3);
    script_sentence({count}, all.size(), 1);
    script_sentence({1, 4}, all.size(), 1);  // the row that was played is on the list, not the one that was drawn
    begins(25);
    for (const std::size_t row : {2U, 0U, 3U}) {
        EXPECT_EQ(card().Sentence.Text.get(), all.at(row).sentence);
        spells_the_word(Way::Mixed);
    }
}

TEST_F(SentenceGame, AGameWithoutSentencesSaysSoAndCantBeWon) {
    spoil_store("UPDATE Sentences_Keystage2 SET noun=''");
    script_sentence({1}, rows(25).size(), 1);
    begins(25);  // its word must not be the one that the next game asks for
    const std::string word = asked_word();
    goes_back_to_the_list();
    opens(29);
    EXPECT_NE(room.message(), "");
    ann.presses(&frmErrmsg::ContinueDe);
    ann.starts_the_clock();
    (void)room.heard_and_forgotten();
    for (int n = 0; n < 6; ++n) ann.types(word);
    EXPECT_TRUE(plays());
    EXPECT_EQ(card().Sentence.Text.get(), "");
    EXPECT_EQ(room.heard_and_forgotten(), std::vector<std::string>{});
}

}  // namespace

}  // namespace marrowfen
