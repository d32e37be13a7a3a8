#include "lesson.h"
#include "typing/frmTypingTest.h"

namespace marrowfen {

namespace {

constexpr std::string_view kSentence = "the quick brown fox jumps over the lazy dog";

class TypingTest : public ::testing::Test, protected Lesson {
protected:
    [[nodiscard]] frmTypingTest& test() { return room.form<frmTypingTest>(); }
    [[nodiscard]] std::string built() { return test().BuildTest.Caption; }
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
