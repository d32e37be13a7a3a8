#include "school/class_grid.h"

namespace marrowfen {

namespace {

// Of the time that was allowed, so many hundredths were left.
constexpr int kHalfway = 25;
constexpr int kWell = 50;
// A typing test has 43 letters; a child who types fluently needs less than a second for each.
constexpr int kHalfwaySeconds = 120;
constexpr int kWellSeconds = 60;

ClassGrid::Level level_of(const Played& best) {
    using enum ClassGrid::Level;
    if (best.time_limit == 0)
        return best.points <= kWellSeconds ? Well : best.points <= kHalfwaySeconds ? Halfway : Begun;
    return best.points >= kWell ? Well : best.points >= kHalfway ? Halfway : Begun;
}

std::string sign_of(ClassGrid::Level level) {
    using enum ClassGrid::Level;
    return level == Well ? "●" : level == Halfway ? "◐" : level == Begun ? "○" : "";
}

}  // namespace

ClassGrid::ClassGrid(const Book& book) : standings_(standings(book)) {
    for (const GameEntry& game : book.games()) {
        if (game.listed()) games_.push_back(&game);
    }
}

ClassGrid::Cell ClassGrid::cell(std::size_t pupil, std::size_t game) const {
    const auto& played = standings_[pupil].games;
    const auto found = played.find(games_[game]->id);
    if (found == played.end()) return {};
    const Played& best = found->second.best;
    const Level level = level_of(best);
    return {level, sign_of(level) + " " + std::to_string(best.points) + (best.time_limit == 0 ? " s" : "")};
}

std::string ClassGrid::legend() {
    return "Best points in each game, seconds (s) in a typing test. ● well: " + std::to_string(kWell) +
           " points or more, " + std::to_string(kWellSeconds) + " s or less. ◐ halfway: " + std::to_string(kHalfway) +
           " points or more, " + std::to_string(kHalfwaySeconds) + " s or less. ○ begun. Empty: not played yet.";
}

}  // namespace marrowfen
