#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <vector>

#include "platform/value.h"

namespace marrowfen {

/// A row as it stands in a page of a store, wherever that page belongs. Text may be a date or a time.
struct CarvedRow {
    enum class From : std::uint8_t { Table, Index };
    From from = From::Table;
    std::int64_t rowid = 0;  ///< 0 in an index, where it is the last value
    std::vector<Value> values;
};

/// Finds rows in a file whose tables can't be walked any more, by looking at each page for itself. Pages that the file
/// calls free are passed over, as far as it can still say which those are; long texts, which go on in other pages, and
/// rows with anything but numbers and text are passed over, too. The file's own lock is not taken.
void carve(const std::filesystem::path& file, const std::function<void(CarvedRow)>& found);

}  // namespace marrowfen
