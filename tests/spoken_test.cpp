#include "platform/forms/spoken.h"
#include "lesson.h"
#include "platform/forms/announcer.h"
#include "results/frmTimer.h"

namespace marrowfen {
namespace {

/// Ann with somebody beside her who only hears.
class Spoken : public ::testing::Test, protected Lesson {
protected:
    std::string news() { return announcer_.news(room.desktop).said; }

private:
    Announcer announcer_;
};

TEST_F(Spoken, ACardSaysItsWordOnlyWhereTheWordIsNotTheAnswer) {
    room.random.script_draw(1, 26);
    begins(26);
    EXPECT_EQ(news(), "apple");
    EXPECT_EQ(spoken_name(key("A")), "A");
    room.random.script_draw(4, 26);
    ann.types("a");
    EXPECT_EQ(news(), "dog");
    EXPECT_EQ(spoken_name(key("A")), "A, done");
    goes_back_to_the_list();
    begins(13);
    EXPECT_EQ(news(), "Picture 1");
}

TEST_F(Spoken, OfATextThatGrowsOnlyWhatIsNewIsSaidAndOfOneThatShrinksNothing) {
    begins(13);
    (void)news();
    const std::string word = asked_word();
    ann.types(word.substr(0, 1));
    EXPECT_EQ(news(), word.substr(0, 1));
    ann.types(word.substr(1, 1));
    EXPECT_EQ(news(), word.substr(1, 1));
    ann.types("1");
    EXPECT_EQ(news(), in_capitals(word.substr(0, 2))) << "it is written anew after a wrong letter";
    room.display.during_yield([&] { EXPECT_EQ(news(), "1"); });
    ann.types("1");
    EXPECT_EQ(news(), "") << "it has been taken back";
}

TEST_F(Spoken, TheStopwatchSaysItsTimeWhenAskedAndSpeaksUpNowAndThen) {
    begins(7, kRedTeam);
    (void)news();
    auto& dial = room.form<frmTimer>().dial;
    EXPECT_EQ(spoken_name(dial), "Stopwatch, 60 seconds left");
    std::vector<std::string> told;
    for (int second = 0; second < 59; ++second) {
        room.seconds_pass(1);
        if (const std::string said = news(); !said.empty()) told.push_back(said);
    }
    EXPECT_EQ(told, (std::vector<std::string>{"Stopwatch, 30 seconds left", "Stopwatch, 10 seconds left",
                                              "Stopwatch, 5 seconds left"}));
    EXPECT_EQ(spoken_name(dial), "Stopwatch, 1 second left");
}

}  // namespace
}  // namespace marrowfen
