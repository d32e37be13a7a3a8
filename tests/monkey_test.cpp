#include "monkey.h"

#include "core/game_table.h"

namespace marrowfen {
namespace {

TEST(Monkey, FindsNoWayToBreakTheProgramInAnyGame) {
    constexpr std::size_t kEvents = 200'000;
    std::size_t events = 0;
    std::set<int> games;
    for (unsigned seed = 1; events < kEvents; ++seed) {
        const Day day = spend_a_day(seed);
        events += day.events;
        games.insert(day.games.begin(), day.games.end());
        if (day.complaint.empty()) continue;
        const auto recording = std::filesystem::absolute("monkey-" + std::to_string(seed) + ".txt");
        (void)spend_a_day(seed, recording);
        FAIL() << day.complaint << "; it is recorded in " << recording;
    }
    EXPECT_EQ(games.size(), listed_games().size()) << "a monkey that does not get to the end tests too little";
}

}  // namespace
}  // namespace marrowfen
