#include "lesson.h"
#include "typing/frmTypingTest.h"

namespace marrowfen {

namespace {

constexpr std::string_view kSentence = "the quick brown fox jumps over the lazy dog";

class TypingTest : public ::testing::Test, protected Lesson {
protected:
    [[nodiscard]] frmTypingTest& test() { return room.form<frmTypingTest>(); }
    [[nodiscard]] std::string built() { return test().BuildTest.Caption; }
    /// The key that the border stands round; empty: it is hidden.
    [[nodiscard]] std::string marked() {
        if (!test().PanBorder.Visible) return {};
        for (const PictureBox& key : test().Keys) {
            if (key.Left - 25 == test().PanBorder.Left && key.Top - 25 == test().PanBorder.Top) return key.Tag;
        }
        return "none";
    }
    void holds_down(char32_t character, int repeats) {
        for (int i = 0; i <= repeats; ++i) {
            if (i > 0) room.display.tell(KeyUp{.repeats = true});
            room.display.tell(KeyDown{.repeats = i > 0, .character = character});
        }
    }
};

TEST_F(TypingTest, OnlyTheFirstLetterMayBeACapital) {
    struct Case {
        std::string typed, built;
    };
    const std::vector<Case> cases{
        {"T", "t"},
        {"Th", "th"},
        {"TH", "t"},
        {"THE QUICK BROWN", "t"},  // Caps Lock
        {"thE e", "the"},
        {"the Quick", "the "},
        {"the  quick", "the quick"},
        {"tthhee", "the"},
        {"1t2h3e4", "the"},
        {"the\rq", "the"},
        {"th.\be\x1B ", "the "},
        {"thequick", "the"},
        {"éthe", "the"},
    };
    for (const auto& [typed, expected] : cases) {
        ann.picks_game(28);
        ann.types(typed);
        EXPECT_EQ(built(), expected) << typed;
        ann.presses(&frmTypingTest::skip_de);
    }
}

TEST_F(TypingTest, TheBorderStandsOnTheKeyThatIsDueAsLongAsAKeyIsDown) {
    ann.picks_game(27);
    holds_down('x', 0);
    EXPECT_EQ(marked(), "T");
    room.display.tell(KeyUp{});
    EXPECT_EQ(marked(), "");
    holds_down('t', 0);
    EXPECT_EQ(marked(), "T");
    holds_down('t', 2);  // held on, it is a wrong key for the next letter
    EXPECT_EQ(marked(), "H");
    EXPECT_EQ(built(), "t");
    room.display.tell(KeyUp{});
    EXPECT_EQ(marked(), "");
    ann.types("h");
    holds_down('e', 1);  // a blank is due after the first of them, and has no key
    EXPECT_EQ(marked(), "E");
    EXPECT_EQ(built(), "the");
    room.display.tell(KeyUp{});
    holds_down('x', 0);
    EXPECT_EQ(marked(), "");
    holds_down(' ', 3);  // as the q is due by then
    EXPECT_EQ(marked(), "Q");
    EXPECT_EQ(built(), "the ");
}

TEST_F(TypingTest, TheKeyboardIsHeardWhateverWasClicked) {
    ann.picks_game(27);
    ann.types("t");
    ann.press(test().Keys[7]);
    ann.types("h");
    ann.clicks_at({15, 15});
    ann.types("e");
    ann.press(test().Label1);
    ann.press(test().Image1);
    ann.types(" ");
    EXPECT_EQ(built(), "the ");
    EXPECT_EQ(room.desktop.active(), &test());
}

TEST_F(TypingTest, EachStartsAfreshAndKnowsNoTeam) {
    begins(26);  // in the Red Team
    goes_back_to_the_list();
    ann.picks_game(27);
    ann.types("the quick");
    room.seconds_pass(20);
    ann.presses(&frmTypingTest::skip_de);
    ann.picks_game(27);
    for (const int seconds : {7, 64}) {
        EXPECT_EQ(built(), "");
        room.seconds_pass(5);
        ann.types("x");  // wrong, but the clock runs from here
        room.seconds_pass(seconds);
        ann.types(kSentence);
        room.seconds_pass(3);
        ann.presses(&frmScore::HallDe);
        ann.presses(&frmHalloffame::PlayAgainDe);
    }
    EXPECT_EQ(room.results(), (std::vector<Kept>{{"Ann", "0:07", 0, 7, 27}, {"Ann", "1:04", 0, 64, 27}}));
    EXPECT_TRUE(room.is_open(FormId::frmTypingTest));
}

TEST_F(TypingTest, WhatHappensInTheLastYieldComesTooLateButForTheSkip) {
    struct Case {
        std::function<void()> event;
        FormId next;
    };
    const std::vector<Case> cases{{[this] { room.seconds_pass(5); }, FormId::frmScore},
                                  {[this] { ann.types("g "); }, FormId::frmScore},
                                  {[this] { ann.presses(&frmTypingTest::skip_de); }, FormId::frmGames}};
    for (const Case& it : cases) {
        ann.picks_game(28);
        ann.types(kSentence.substr(0, kSentence.size() - 1));
        room.display.during_yield(it.event);
        ann.types("g");
        EXPECT_EQ(room.open_forms(), (std::vector{FormId::frmBackGround, it.next}));
        if (it.next == FormId::frmGames) continue;
        EXPECT_EQ(room.form<frmScore>().txtpoints.Text.get(), "0");
        goes_back_to_the_list();
    }
}

}  // namespace

}  // namespace marrowfen
