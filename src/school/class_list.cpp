#include "school/class_list.h"

#include <algorithm>
#include <array>
#include <map>

#include "platform/letter_case.h"
#include "platform/text/folding.h"
#include "platform/text/letters.h"
#include "school/names.h"

namespace marrowfen {

namespace {

/// What a school's office calls the column, the likeliest first.
constexpr std::array<std::string_view, 8> kTitles{"PupilName",  "Pupil", "Name",     "Full name",
                                                  "First name", "Names", "Forename", "Pupils"};

std::size_t rank_as_title(std::string_view cell) {
    const auto found = std::ranges::find_if(kTitles, [&](auto title) { return same_name(title, tidied(cell)); });
    return static_cast<std::size_t>(found - kTitles.begin());
}

bool is_title_row(const CsvRow& row) {
    return std::ranges::any_of(row.cells, [](const auto& cell) { return rank_as_title(cell) < kTitles.size(); });
}

/// Empty where the row has no such cell.
std::string as_cell(const CsvRow& row, std::size_t column) {
    return column < row.cells.size() ? tidied(without_harmlessness(row.cells[column])) : std::string{};
}

}  // namespace

ClassList::ClassList(std::string bytes) : rows_(read_csv(as_utf8(std::move(bytes)))) {
    std::size_t width = 0;
    for (const CsvRow& row : rows_) width = std::max(width, row.cells.size());
    const bool has_titles = !rows_.empty() && is_title_row(rows_.front());
    for (std::size_t i = 0; i < width; ++i) {
        std::string title = has_titles ? as_cell(rows_.front(), i) : std::string{};
        if (title.empty()) title = "Column " + std::to_string(i + 1);
        columns_.push_back(std::move(title));
    }
    if (has_titles) rows_.erase(rows_.begin());
}

std::size_t ClassList::likely_column() const {
    const auto likeliest = std::ranges::min_element(columns_, {}, rank_as_title);
    return likeliest == columns_.end() ? 0 : static_cast<std::size_t>(likeliest - columns_.begin());
}

std::vector<ClassList::Line> ClassList::lines(std::size_t column, const std::vector<KeptPupil>& pupils) const {
    const GivenNames given(pupils);
    std::map<std::string, int> seen;
    std::vector<Line> lines;
    lines.reserve(rows_.size());
    for (const CsvRow& row : rows_) {
        Line line{.number = row.line, .name = as_cell(row, column), .fault = {}};
        line.fault = fault_in_name(line.name);
        if (line.fault.empty() && given.has(line.name)) line.fault = kNameTaken;
        if (line.fault.empty()) {
            const auto [earlier, is_new] = seen.try_emplace(folded(line.name), row.line);
            if (!is_new) line.fault = "the same name stands in line " + std::to_string(earlier->second);
        }
        lines.push_back(std::move(line));
    }
    return lines;
}

std::vector<std::string> good_names(const std::vector<ClassList::Line>& lines) {
    std::vector<std::string> names;
    for (const ClassList::Line& line : lines) {
        if (line.fault.empty()) names.push_back(line.name);
    }
    return names;
}

}  // namespace marrowfen
