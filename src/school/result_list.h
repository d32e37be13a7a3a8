#pragma once

#include <cstdint>
#include <vector>

#include "school/book.h"

namespace marrowfen {

enum class ResultColumn : std::uint8_t { Pupil, Game, Team, Points, Taken, When };
enum class Order : std::uint8_t { Ascending, Descending };

/// Some of a book's results in some order, as places in `Book::results`. Good for as long as the book isn't read anew.
using ResultPlaces = std::vector<std::uint32_t>;

[[nodiscard]] ResultPlaces results_that_fit(const Book& book, const ResultFilter& filter);
/// Results that are equal in the column keep the order in which they stand.
void sort_results(const Book& book, ResultPlaces& places, ResultColumn column, Order order);

/// "Red" to "Blue"; empty for a typing test, which has no team.
[[nodiscard]] std::string team_of(const Played& played);

}  // namespace marrowfen
