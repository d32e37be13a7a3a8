// Whole games of all kinds, one after the other in one process: `tools/trials soak`. What the program needs at the end
// it must have needed after the first hundred.

#include <malloc.h>

#include <cstdio>
#include <cstdlib>
#include <optional>

#include "core/game_table.h"
#include "lesson.h"
#include "typing/frmTypingTest.h"

namespace marrowfen {

namespace {

constexpr int kFirst = 100;

/// In KiB. The store's cache grows with what is kept, up to a limit of its own; all else must stay as it is.
struct Memory {
    std::size_t in_use = mallinfo2().uordblks / 1024;
    std::size_t cache = static_cast<std::size_t>(sqlite3_memory_used()) / 1024;
    [[nodiscard]] double without_cache() const { return static_cast<double>(in_use - cache); }
};

void play(Lesson& lesson, std::int16_t game) {
    Classroom& room = lesson.room;
    lesson.ann.picks_game(game);
    if (is_typing_test(game)) {
        lesson.ann.types("The quick brown fox jumps over the lazy dog");
    } else {
        lesson.ann.joins(kTeams.at(static_cast<std::size_t>(game) % kTeams.size()));
        lesson.ann.starts_the_clock();
        const Game& row = *find_game(game);
        const bool is_dragged = row.deals_tiles && row.typed == RuleId::None;
        for (int answer = 0; lesson.plays() && answer < 200; ++answer) {
            if (answer % 9 == 2) lesson.gives(lesson.wrong_letter(), is_dragged ? Way::Mouse : Way::Mixed);
            lesson.gives(lesson.right_letter(), is_dragged ? Way::Mouse : Way::Mixed);
            if (answer % 12 == 5) room.seconds_pass(1);
        }
    }
    lesson.ann.presses(&frmScore::HallDe);
    lesson.ann.presses(&frmHalloffame::AnotherDe);
    room.sound.forget();
}

int soak(int games, const std::filesystem::path& recording) {
    Lesson lesson({"Ann"}, recording);
    std::optional<Memory> first;
    for (int played = 1; played <= games && !testing::Test::HasFailure(); ++played) {
        play(lesson, static_cast<std::int16_t>(played % static_cast<int>(listed_games().size()) + 1));
        if (played == kFirst) first.emplace();
    }
    const Memory last;
    const std::size_t results = lesson.room.results().size();
    if (results != static_cast<std::size_t>(games) || !first) return EXIT_FAILURE;
    const double growth = (last.without_cache() / first->without_cache() - 1) * 100;
    std::printf(
        "%zu games; memory in use after %d: %zu KiB, at the end: %zu KiB; of that the store's cache: %zu KiB, "
        "%zu KiB; the rest has grown by %.2f %%\n",
        results, kFirst, first->in_use, last.in_use, first->cache, last.cache, growth);
    return growth <= 1 ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace

}  // namespace marrowfen

int main(int argc, char** argv) {
    if (argc > 1) return marrowfen::soak(static_cast<int>(std::strtol(argv[1], nullptr, 10)), argc > 2 ? argv[2] : "");
    std::puts("Usage: soak GAMES [RECORDING]");
    return EXIT_FAILURE;
}
