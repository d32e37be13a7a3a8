#include "lesson.h"

namespace marrowfen {

namespace {

struct Rhyme {
    std::string word, end;
};

class Rhymes : public ::testing::Test, protected Lesson {
protected:
    [[nodiscard]] std::vector<Rhyme> group(const std::string& table, int id) {
        std::vector<Rhyme> rhymes;
        const auto rows = room.store().open(table);
        const std::string in_group = where_number("id", id);
        for (auto row = rows->find_first(in_group); row.value(); row = rows->find_next(in_group)) {
            rhymes.push_back({as_text(rows->field("word")), as_text(rows->field("end"))});
        }
        return rhymes;
    }
    [[nodiscard]] static std::string table_of(int game) { return game == 14 ? "Words_Keystage1" : "Words_Keystage2"; }
    /// Lays down that of a group's rows the one in this place comes on show, which asks for as many rhymes.
    void script_word(int place, std::size_t rows) {
        const int highest = static_cast<int>(rows) - 2;
        room.random.script_draw(highest, static_cast<int>(rows));
        room.random.script_draw(place, highest);
    }
    [[nodiscard]] frmWord& card() { return room.form<frmWord>(); }
    [[nodiscard]] static std::string prompt(int left) {
        return "Find " + std::to_string(left) + " words that rhyme with";
    }
    void expect_on_card(const Rhyme& rhyme, int left) {
        EXPECT_EQ(card().theword.Caption.get(), rhyme.word);
        EXPECT_EQ(card().end.Caption.get(), rhyme.end);
        EXPECT_EQ(card().Label1.Caption.get(), prompt(left));
    }
};

TEST_F(Rhymes, EveryLetterIsJudgedOnce) {
    struct Try {
        const char *letter, *typed, *clicked;  // the cues; none: not even judged
        int left;
    };
    script_word(6, group("Words_Keystage1", 1).size());
    begins(14);
    expect_on_card({"Pat", "at"}, 6);
    for (const Try& it : {Try{"p", "Donkey.au", "Donkey.au", 6},  // the word on show
                          {"h", "magic.au", nullptr, 5},
                          {"h", "donkey.au", nullptr, 5},
                          {"H", "magic.au", "Donkey.au", 4},  // a capital is another letter than the small one
                          {"c", "magic.au", nullptr, 3},
                          {"C", nullptr, "Magic.au", 2},
                          {"C", "donkey.au", "Donkey.au", 2},
                          {"z", "donkey.au", "Donkey.au", 2},
                          {"7", "donkey.au", "Donkey.au", 2}}) {
        SCOPED_TRACE(it.letter);
        std::vector<std::string> cues;
        if (it.typed != nullptr) ann.types(it.letter), cues.emplace_back(it.typed);
        if (it.clicked != nullptr) ann.press(key(it.letter)), cues.emplace_back(it.clicked);
        EXPECT_EQ(room.heard_and_forgotten(), cues);
        EXPECT_EQ(card().Label1.Caption.get(), prompt(it.left));
    }
    ann.types(" \r\b'@[");
    EXPECT_TRUE(room.heard_and_forgotten().empty());
    EXPECT_EQ(shown_by(card().Image1.Picture), "Upper\\7.bmp");
    EXPECT_EQ(found(), "   Hat   Hat   Cat   Cat");
}

TEST_F(Rhymes, AWordOfAnotherGroupCountsAndTheFirstWordsLastLetterDoesNot) {
    spoil_store("INSERT INTO Words_Keystage1 (id, word, word_folded, end) VALUES (2, 'Tat', 'tat', 'at')");
    script_word(3, group("Words_Keystage1", 1).size());
    begins(14);
    expect_on_card({"Bat", "at"}, 3);
    ann.types("t");
    EXPECT_EQ(card().Label1.Caption.get(), prompt(3));
    ann.types("T");
    EXPECT_EQ(card().Label1.Caption.get(), prompt(2));
    ann.press(key("T"));
    EXPECT_EQ(room.heard_and_forgotten(), (std::vector<std::string>{"donkey.au", "magic.au", "Donkey.au"}));
}

TEST_F(Rhymes, TheClockRunsUpToTheLastWordOfTheLastTask) {
    begins(14);
    while (plays() && room.state().WordCursor < kGroupsInAGame - 1) gives(right_letter(), Way::SmallLetters);
    ASSERT_TRUE(plays());
    ASSERT_GT(room.state().RhymesLeft, 1);
    gives(right_letter(), Way::SmallLetters);
    room.seconds_pass(60);
    EXPECT_TRUE(room.is_open(FormId::frmTimeUp));
}

TEST_F(Rhymes, TheDrawLeavesMoreThanItAsksFor) {
    spoil_store("DELETE FROM Words_Keystage2 WHERE id=1 AND word NOT IN ('Cake', 'Lake', 'Rake')");
    for (const int game : {14, 1}) {
        const auto rhymes = group(table_of(game), 1);
        const int count = static_cast<int>(rhymes.size());
        ASSERT_GE(count, 3);
        for (int first = 1; first <= count; ++first) {
            const int highest = count - first < 2 ? first - 2 : first;
            for (int second = 1; second <= std::max(highest, 1); ++second) {
                SCOPED_TRACE(std::to_string(first) + " of " + std::to_string(count) + ", " + std::to_string(second));
                room.random.script_draw(first, count);
                room.random.script_draw(second, std::max(highest, 1));
                opens(game);
                EXPECT_EQ(room.random.unused(), 0U);
                EXPECT_LE(second, count - 2);
                expect_on_card(rhymes.at(static_cast<std::size_t>(second - 1)), second);
                goes_back_to_the_list();
            }
        }
    }
}

TEST_F(Rhymes, AGroupThatIsTooSmallIsPassedOver) {
    spoil_store(
        "DELETE FROM Words_Keystage1 WHERE id=1 AND word NOT IN ('Cat', 'Hat');"
        "UPDATE Words_Keystage1 SET end='' WHERE id=3 AND word NOT IN ('Net', 'Jet');"
        "DELETE FROM Words_Keystage1 WHERE id=7");
    for (const int id : {2, 4, 5, 6}) script_word(1, group("Words_Keystage1", id).size());
    begins(14);
    for (const std::string word : {"Van", "Hen", "Bug", "King"}) {
        EXPECT_EQ(card().theword.Caption.get(), word);
        gives(right_letter(), Way::Mixed);
    }
    EXPECT_EQ(room.open_forms(), (std::vector{FormId::frmBackGround, FormId::frmScore}));
}

TEST_F(Rhymes, AGameWithoutAnyGroupSaysSoAndCantBeWon) {
    spoil_store("DELETE FROM Words_Keystage2");
    opens(1);
    EXPECT_NE(room.message(), "");
    ann.presses(&frmErrmsg::ContinueDe);
    ann.starts_the_clock();
    ann.types("a");
    ann.press(key("B"));
    EXPECT_TRUE(plays());
    EXPECT_FALSE(room.is_open(FormId::frmScore));
}

}  // namespace

}  // namespace marrowfen
