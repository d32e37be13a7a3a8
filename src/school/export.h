#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <ostream>
#include <string>

#include "school/book.h"
#include "school/result_list.h"

namespace marrowfen {

/// Why a file could not be written, as a sentence without its full stop.
using FileFailure = std::optional<std::string>;

/// A file is there whole or not at all: it is written beside its place and moved there when all is on the disk. `write`
/// answers whether it came to its end; false leaves everything as it was.
[[nodiscard]] FileFailure write_whole_file(const std::filesystem::path& file,
                                           const std::function<bool(std::ostream&)>& write);

/// CSV with a line of titles: name, games, last played, best result, what next.
[[nodiscard]] FileFailure export_pupils(const Book& book, const std::filesystem::path& file);
[[nodiscard]] bool write_pupils(const Book& book, std::ostream& output);

/// CSV with a line of titles: pupil, game, team, points, seconds of a typing test, time taken, date, time of day.
[[nodiscard]] FileFailure export_results(const Book& book, const ResultPlaces& places,
                                         const std::filesystem::path& file, const Progress& progress);
[[nodiscard]] bool write_results(const Book& book, const ResultPlaces& places, std::ostream& output,
                                 const Progress& progress);

}  // namespace marrowfen
