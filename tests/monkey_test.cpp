#include "monkey.h"

#include <iostream>

#include "core/game_table.h"

namespace marrowfen {
namespace {

TEST(Monkey, FindsNoWayToBreakTheProgramInAnyGame) {
    constexpr std::size_t kEvents = 200'000;
    const std::filesystem::path recording = MARROWFEN_MONKEYS_RUN;
    std::cout << "A run that breaks something stays in " << recording << ", for marrowfen --replay." << std::endl;
    std::size_t events = 0;
    std::set<int> games;
    for (unsigned seed = 1; events < kEvents; ++seed) {
        const Day day = spend_a_day(seed, recording);
        events += day.events;
        games.insert(day.games.begin(), day.games.end());
        if (day.complaint.empty()) continue;
        FAIL() << day.complaint << " (seed " << seed << ")";
    }
    EXPECT_EQ(games.size(), listed_games().size()) << "a monkey that does not get to the end tests too little";
    std::filesystem::remove(recording);
}

}  // namespace
}  // namespace marrowfen
