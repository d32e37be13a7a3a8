#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "school/book.h"

namespace marrowfen {

/// How a pupil stands in one game.
struct InGame {
    std::int64_t times = 0;
    Played best;  ///< most points; in a typing test the fewest seconds
};

/// How a pupil stands in all of them.
struct Standing {
    std::int64_t times = 0;
    std::int32_t last_day = Played::kUnknown;
    std::optional<Played> best;  ///< most points of the timed games
    std::map<std::int16_t, InGame> games;
    std::vector<Played> latest;  ///< at most `kLatest`, the newest last

    static constexpr std::size_t kLatest = 4;

    void count(const Played& played);  ///< one more, later than those before
};

/// One for each of the book's pupils, in their order. Results of removed pupils count for nobody.
[[nodiscard]] std::vector<Standing> standings(const Book& book);

/// Whether one of two results of the same game is better than the other. Where points are equal, the shorter time
/// limit was harder.
[[nodiscard]] bool is_better(const Played& one, const Played& other);

/// Four times the same game in a row, and the best of them not the last: this pupil needs a helping hand.
[[nodiscard]] bool is_stuck(const Standing& standing);

/// What to try next, in one sentence, from the order of the games.
[[nodiscard]] std::string advice(const Book& book, const Standing& standing);

}  // namespace marrowfen
