#include "lesson.h"
#include "pupils/frmErrmsg.h"
#include "rules/rule.h"

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

TEST_F(Rhymes, SevenWordsMakeAGameWhateverWayTheyAreGiven) {
    for (const int game : {1, 14}) {
        for (const Way way : kWays) {
            SCOPED_TRACE(std::to_string(game) + " in way " + std::to_string(static_cast<int>(way)));
            const auto asked_of = [](int id) { return 1 + id % 3; };
            for (int id = 1; id <= 7; ++id) script_word(asked_of(id), group(table_of(game), id).size());
            begins(game);
            std::vector<std::string> cues;
            for (int id = 1; id <= 7; ++id) {
                const int asked = asked_of(id);
                expect_on_card(group(table_of(game), id).at(static_cast<std::size_t>(asked - 1)), asked);
                EXPECT_FALSE(card().Image1.Visible && id > 1);
                EXPECT_EQ(found(), "");
                bool typed = false;
                for (int left = asked; left > 0; --left) {
                    typed = gives(right_letter(), way).typed;
                    cues.emplace_back(typed ? "magic.au" : "Magic.au");
                }
                cues.emplace_back(typed ? "ding.wav" : "Ding.wav");
            }
            EXPECT_EQ(room.heard_and_forgotten(), cues);
            EXPECT_EQ(room.open_forms(), (std::vector{FormId::frmBackGround, FormId::frmScore}));
            goes_back_to_the_list();
        }
    }
    EXPECT_EQ(room.results().size(), 2 * kWays.size());
}

TEST_F(Rhymes, EveryLetterIsJudgedOnce) {
    struct Try {
        std::string letter;
        By by;
        std::string cue;  // empty: not even judged
        int left;
    };
    const std::vector<Try> tries{
        {"p", By::Typing, "Donkey.au", 6},    // the word on show
        {"P", By::Clicking, "Donkey.au", 6},  // likewise
        {"h", By::Typing, "magic.au", 5},
        {"h", By::Typing, "donkey.au", 5},
        {"H", By::Typing, "magic.au", 4},  // a capital is another letter than the small one
        {"H", By::Typing, "donkey.au", 4},
        {"H", By::Clicking, "Donkey.au", 4},
        {"c", By::Typing, "magic.au", 3},
        {"C", By::Clicking, "Magic.au", 2},
        {"C", By::Typing, "donkey.au", 2},
        {"z", By::Typing, "donkey.au", 2},
        {"Z", By::Clicking, "Donkey.au", 2},
        {"7", By::Typing, "donkey.au", 2},
        {"7", By::Clicking, "Donkey.au", 2},
        {" ", By::Typing, "", 2},
        {"\r", By::Typing, "", 2},
        {"\b", By::Typing, "", 2},
        {"'", By::Typing, "", 2},
        {"@", By::Typing, "", 2},
        {"[", By::Typing, "", 2},
    };
    script_word(6, group("Words_Keystage1", 1).size());
    begins(14);
    expect_on_card({"Pat", "at"}, 6);
    EXPECT_EQ(card().Image1.Picture->source(), Picture::Source::None);
    std::string in_the_gap;
    for (const auto& [letter, by, cue, left] : tries) {
        SCOPED_TRACE(letter + (by == By::Typing ? " typed" : " clicked"));
        if (by == By::Typing) {
            ann.types(letter);
        } else {
            ann.press(key(letter));
        }
        EXPECT_EQ(room.heard_and_forgotten(), cue.empty() ? std::vector<std::string>{} : std::vector{cue});
        EXPECT_EQ(card().Label1.Caption.get(), prompt(left));
        if (!cue.empty()) in_the_gap = "Upper\\" + letter + ".bmp";
        EXPECT_EQ(shown_by(card().Image1.Picture), in_the_gap);
        EXPECT_TRUE(card().Image1.Visible);
    }
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

TEST_F(Rhymes, ALaterWordBarsOnlyItself) {
    script_word(1, group("Words_Keystage1", 1).size());
    script_word(2, group("Words_Keystage1", 2).size());
    begins(14);
    std::string prompt_at_the_end;
    room.display.during_yield([&] { prompt_at_the_end = card().Label1.Caption; }, 2);
    ann.types("h");
    EXPECT_EQ(prompt_at_the_end, prompt(0));
    expect_on_card({"Man", "an"}, 2);
    ann.types("n");
    EXPECT_EQ(card().Label1.Caption.get(), prompt(1));
    EXPECT_EQ(found(), "   Nan");
}

TEST_F(Rhymes, WithoutSoundOnlyTheYieldsThatAreNoCuesAreLeft) {
    struct Case {
        Way way;
        std::string letter;
        std::size_t with_sound, without;
    };
    script_word(7, group("Words_Keystage1", 1).size());
    begins(14);
    const std::vector<Case> cases{{Way::SmallLetters, "S", 2, 1}, {Way::SmallLetters, "Z", 2, 1},
                                  {Way::SmallLetters, "C", 2, 1}, {Way::Mouse, "S", 2, 1},
                                  {Way::Mouse, "Z", 3, 2},        {Way::Mouse, "H", 3, 2}};
    for (const bool sound : {true, false}) {
        room.state().SoundOn = sound;
        for (const Case& it : cases) {
            const std::size_t before = room.display.yields();
            gives(it.letter, it.way);
            EXPECT_EQ(room.display.yields() - before, sound ? it.with_sound : it.without) << it.letter;
        }
        EXPECT_EQ(room.heard_and_forgotten().empty(), !sound);
    }
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

TEST_F(Rhymes, TheLettersAToZFinishEveryTaskOfEveryGroup) {
    for (const int game : {1, 14}) {
        // Groups 8 and 9 take their turn in the places of the first two.
        for (const bool swapped : {false, true}) {
            if (swapped && game == 14) continue;
            if (swapped)
                spoil_store(
                    "UPDATE Words_Keystage2 SET id = CASE WHEN id < 3 THEN id + 7 ELSE id - 7 END "
                    "WHERE id IN (1, 2, 8, 9)");
            std::size_t longest = 1;
            for (std::size_t asked = 1; asked <= longest; ++asked) {
                for (int id = 1; id <= 7; ++id) {
                    const std::size_t rows = group(table_of(game), id).size();
                    longest = std::max(longest, rows - 2);
                    script_word(static_cast<int>(std::min(asked, rows - 2)), rows);
                }
                begins(game);
                for (int id = 1; id <= 7; ++id) {
                    const std::string word = card().theword.Caption;
                    for (char letter = 'a'; letter <= 'z' && plays() && card().theword.Caption == word; ++letter) {
                        ann.types({&letter, 1});
                    }
                    ASSERT_TRUE(!plays() || card().theword.Caption != word) << word << " of game " << game;
                }
                ASSERT_TRUE(room.is_open(FormId::frmScore));
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
