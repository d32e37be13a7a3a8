// The monkey for as long as one likes: `tools/trials monkey`. Each of its days is recorded and played again from the
// recording; a day that ended badly leaves it.

#include <cstdio>
#include <cstdlib>

#include "core/game_table.h"
#include "monkey.h"
#include "replaying.h"

int main(int argc, char** argv) {
    using namespace marrowfen;
    if (argc < 3) {
        std::puts("Usage: monkey EVENTS FOLDER [FIRST_SEED]");
        return EXIT_FAILURE;
    }
    const std::size_t wanted = std::strtoull(argv[1], nullptr, 10);
    auto seed = static_cast<unsigned>(argc > 3 ? std::strtoul(argv[3], nullptr, 10) : 1);
    std::size_t events = 0;
    std::size_t results = 0;
    std::set<int> games;
    for (; events < wanted; ++seed) {
        const auto recording = std::filesystem::path(argv[2]) / ("monkey-" + std::to_string(seed) + ".txt");
        Day day = spend_a_day(seed, recording);
        std::string reason;
        if (day.complaint.empty())
            day.complaint = replay(read_recording(recording, reason).value_or(std::vector<std::string>{}));
        if (!day.complaint.empty() || testing::Test::HasFailure()) {
            std::printf("%s\nIt is recorded in %s\n", day.complaint.c_str(), recording.c_str());
            return EXIT_FAILURE;
        }
        std::filesystem::remove(recording);
        events += day.events;
        results += day.results;
        games.insert(day.games.begin(), day.games.end());
    }
    std::printf("%zu events, %zu games won, of %zu kinds; the last seed was %u\n", events, results, games.size(),
                seed - 1);
    return games.size() == listed_games().size() || wanted < 200'000 ? EXIT_SUCCESS : EXIT_FAILURE;
}
