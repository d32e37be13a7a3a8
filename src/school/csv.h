#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

/// Tables as spreadsheets exchange them: RFC 4180, UTF-8.
namespace marrowfen {

using CsvCells = std::vector<std::string>;

struct CsvRow {
    int line = 0;  ///< of the file, from 1, where the row begins
    CsvCells cells;
};

/// Cells parted by commas, semicolons or tabs, whichever the first line has most of. Empty lines are left out; blanks
/// round a cell do not count unless it is quoted. A quote that never ends ends with the file.
[[nodiscard]] std::vector<CsvRow> read_csv(std::string_view text);

/// Writes a byte order mark first, without which some spreadsheets take the letters for those of old Windows.
class CsvWriter {
public:
    explicit CsvWriter(std::ostream& output);
    void write(const CsvCells& cells);

private:
    std::ostream& output_;
};

/// A spreadsheet calculates what begins with =, +, - or @, and a name must not: it gets an apostrophe in front, as a
/// spreadsheet's own users write it. One that begins with such an apostrophe gets another, so that all come back.
[[nodiscard]] std::string harmless(std::string_view text);
[[nodiscard]] std::string without_harmlessness(std::string_view cell);  ///< the text that `harmless` was given

}  // namespace marrowfen
