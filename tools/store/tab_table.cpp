#include "tab_table.h"

#include <algorithm>
#include <charconv>
#include <fstream>

#include "platform/letter_case.h"
#include "platform/sqlite/folding.h"
#include "platform/sqlite/schema.h"

namespace marrowfen {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanks = " \r";

/// A spreadsheet puts a cell that holds a quote into quotes, and doubles the one inside.
std::string unquoted(std::string_view cell) {
    if (cell.size() < 2 || cell.front() != '"' || cell.back() != '"') return std::string(cell);
    std::string text;
    for (std::size_t i = 1; i + 1 < cell.size(); ++i) {
        text += cell[i];
        if (cell[i] == '"' && cell[i + 1] == '"' && i + 2 < cell.size()) ++i;
    }
    return text;
}

std::string trimmed(std::string_view cell) {
    const auto first = cell.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return unquoted(cell.substr(first, cell.find_last_not_of(kBlanks) - first + 1));
}

std::vector<std::string> split(std::string_view line) {
    std::vector<std::string> cells;
    while (true) {
        const auto tab = line.find('\t');
        cells.push_back(trimmed(line.substr(0, tab)));
        if (tab == std::string_view::npos) return cells;
        line.remove_prefix(tab + 1);
    }
}

bool all_empty(const std::vector<std::string>& cells) {
    return std::ranges::all_of(cells, [](const std::string& cell) { return cell.empty(); });
}

}  // namespace

TabTable::TabTable(std::filesystem::path file, const std::vector<std::string>& columns, Faults& faults)
    : file_(std::move(file)), columns_(columns) {
    std::ifstream input(file_, std::ios::binary);
    std::error_code error;
    if (!input || !std::filesystem::is_regular_file(file_, error)) {
        faults.add(file_, 1, "the file can't be read");
        return;
    }
    read(input, faults);
    if (input.bad()) faults.add(file_, 1, "the file can't be read to its end");
}

void TabTable::read(std::istream& input, Faults& faults) {
    std::optional<std::vector<std::size_t>> where;
    std::string line;
    for (int number = 1; std::getline(input, line); ++number) {
        if (number == 1 && line.starts_with(kByteOrderMark)) line.erase(0, kByteOrderMark.size());
        if (line.starts_with('#')) continue;
        const auto cells = split(line);
        if (all_empty(cells)) continue;
        if (!is_utf8(line)) {
            faults.add(file_, number, "some letters can't be read; save the table as UTF-8");
        } else if (where) {
            add_row(number, cells, *where, faults);
        } else {
            head_line_ = number;
            where = places(cells, faults);
            if (!where) return;
            has_its_columns_ = true;
        }
    }
    if (!where) faults.add(file_, 1, "the line with the names of the columns is missing");
}

std::optional<std::vector<std::size_t>> TabTable::places(const std::vector<std::string>& names, Faults& faults) const {
    bool good = true;
    const auto fault = [&](const std::string& reason) {
        faults.add(file_, head_line_, reason);
        good = false;
    };
    for (std::size_t i = 0; i < names.size(); ++i) {
        const auto same = [&](const std::string& name) { return same_name(name, names[i]); };
        if (names[i].empty() && all_empty({names.begin() + static_cast<std::ptrdiff_t>(i), names.end()})) break;
        if (std::ranges::none_of(columns_, same)) fault("there should be no column '" + names[i] + "'");
        if (std::count_if(names.begin(), names.begin() + static_cast<std::ptrdiff_t>(i), same) == 1) {
            fault("the column " + names[i] + " is there twice");
        }
    }
    std::vector<std::size_t> found;
    for (const std::string& column : columns_) {
        const auto name = std::ranges::find_if(names, [&](const std::string& n) { return same_name(n, column); });
        if (name == names.end()) fault("the column " + column + " is missing");
        found.push_back(static_cast<std::size_t>(name - names.begin()));
    }
    return good ? std::optional(found) : std::nullopt;
}

void TabTable::add_row(int line, const std::vector<std::string>& cells, const std::vector<std::size_t>& places,
                       Faults& faults) {
    Row row{.line = line, .cells = {}};
    for (const std::size_t place : places) row.cells.push_back(place < cells.size() ? cells[place] : std::string{});
    const auto surplus = std::min(cells.size(), columns_.size());
    if (!all_empty({cells.begin() + static_cast<std::ptrdiff_t>(surplus), cells.end()})) {
        faults.add(
            file_, line,
            "there are " + std::to_string(cells.size()) + " cells for " + std::to_string(columns_.size()) + " columns");
    }
    rows_.push_back(std::move(row));
}

std::string RowReader::needed(std::size_t column) const {
    if (cell(column).empty()) fault(table_.column(column) + " is empty");
    return cell(column);
}

std::optional<int> RowReader::whole(std::size_t column, int lowest, int highest) const {
    const std::string text = needed(column);
    if (text.empty()) return std::nullopt;
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error == std::errc{} && end == text.data() + text.size() && number >= lowest && number <= highest)
        return number;
    fault(table_.column(column) + " is '" + text + "', but should be a number from " + std::to_string(lowest) + " to " +
          std::to_string(highest));
    return std::nullopt;
}

void RowReader::only_once(std::size_t column, const std::string& compared, std::map<std::string, int>& seen) const {
    if (compared.empty()) return;
    const auto [earlier, is_new] = seen.try_emplace(compared, row_.line);
    if (is_new) return;
    fault(table_.column(column) + " '" + cell(column) + "' stands in line " + std::to_string(earlier->second) +
          " already");
}

bool all_small_letters(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return c >= 'a' && c <= 'z'; });
}

bool all_letters(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); });
}

std::size_t length_in_characters(std::string_view text) {
    constexpr auto goes_on = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; };
    return text.size() - static_cast<std::size_t>(std::ranges::count_if(text, goes_on));
}

}  // namespace marrowfen
