#include "school/tab_table.h"

#include <algorithm>
#include <charconv>
#include <fstream>

#include "platform/letter_case.h"
#include "platform/text/letters.h"

namespace marrowfen {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr char kBlank = ' ';

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
    const auto first = cell.find_first_not_of(kBlank);
    if (first == std::string_view::npos) return {};
    return unquoted(cell.substr(first, cell.find_last_not_of(kBlank) - first + 1));
}

std::vector<std::string_view> parted(std::string_view text, char at) {
    std::vector<std::string_view> parts;
    while (true) {
        const auto end = text.find(at);
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos) return parts;
        text.remove_prefix(end + 1);
    }
}

std::vector<std::string> cells_of(std::string_view line) {
    std::vector<std::string> cells;
    for (const std::string_view cell : parted(line, '\t')) cells.push_back(trimmed(cell));
    return cells;
}

/// Up to the last one that is not empty: a spreadsheet fills lines up with empty cells.
std::size_t count_cells(const std::vector<std::string>& cells) {
    std::size_t count = cells.size();
    while (count > 0 && cells[count - 1].empty()) --count;
    return count;
}

/// Why a person could not see what stands in the line. Empty: all can be seen.
std::string unreadable(std::string_view line) {
    switch (unseen_in(line)) {
        case Unseen::Bytes:
            return "some letters can't be read; save the table as UTF-8";
        case Unseen::Control:
            return "there is an invisible control character; type the line anew";
        case Unseen::Nothing:
            break;
    }
    return {};
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

TabTable::TabTable(const std::vector<std::string>& columns, const std::vector<std::vector<std::string>>& rows,
                   Faults& faults)
    : columns_(columns), head_line_(0), has_its_columns_(true) {
    for (const auto& written : rows) {
        Row row{.line = static_cast<int>(rows_.size()) + 1, .cells = {}};
        for (std::size_t column = 0; column < columns_.size(); ++column) {
            const std::string& cell = written[column];
            row.cells.push_back(trimmed(cell));
            if (const auto reason = unreadable(cell); !reason.empty()) faults.add(file_, row.line, reason, column);
        }
        rows_.push_back(std::move(row));
    }
}

bool TabTable::has_column(const std::filesystem::path& file, std::string_view name) {
    std::ifstream input(file, std::ios::binary);
    for (std::string line; std::getline(input, line);) {
        if (line.starts_with('#')) continue;
        return std::ranges::any_of(cells_of(line), [&](const std::string& cell) { return same_name(cell, name); });
    }
    return false;
}

void TabTable::read(std::istream& input, Faults& faults) {
    int number = 0;
    for (std::string text; std::getline(input, text);) {
        if (number == 0 && text.starts_with(kByteOrderMark)) text.erase(0, kByteOrderMark.size());
        if (text.ends_with('\r')) text.pop_back();
        // Some systems end a line with the carriage return alone.
        for (const std::string_view line : parted(text, '\r')) {
            if (!take(line, ++number, faults)) return;
        }
    }
    if (!has_its_columns_) faults.add(file_, 1, "the line with the names of the columns is missing");
}

bool TabTable::take(std::string_view line, int number, Faults& faults) {
    if (line.starts_with('#')) return true;
    const auto cells = cells_of(line);
    if (count_cells(cells) == 0) return true;
    if (!has_its_columns_) head_line_ = number;
    if (const std::string reason = unreadable(line); !reason.empty()) {
        faults.add(file_, number, reason);
    } else if (has_its_columns_) {
        add_row(number, cells, faults);
    } else {
        has_its_columns_ = take_head(cells, faults);
    }
    return has_its_columns_;
}

bool TabTable::take_head(const std::vector<std::string>& names, Faults& faults) {
    const std::size_t nowhere = names.size();
    places_.assign(columns_.size(), nowhere);
    bool good = true;
    const auto fault = [&](const std::string& reason) {
        faults.add(file_, head_line_, reason);
        good = false;
    };
    const std::size_t count = count_cells(names);
    for (std::size_t i = 0; i < count; ++i) {
        const auto column = std::ranges::find_if(columns_, [&](const auto& name) { return same_name(name, names[i]); });
        if (column == columns_.end()) {
            fault("there should be no column '" + names[i] + "'");
            continue;
        }
        std::size_t& place = places_[static_cast<std::size_t>(column - columns_.begin())];
        if (place != nowhere) fault("the column " + *column + " is there twice");
        place = i;
    }
    for (std::size_t column = 0; column < columns_.size(); ++column) {
        if (places_[column] == nowhere) fault("the column " + columns_[column] + " is missing");
    }
    return good;
}

void TabTable::add_row(int line, const std::vector<std::string>& cells, Faults& faults) {
    Row row{.line = line, .cells = {}};
    for (const std::size_t place : places_) row.cells.push_back(place < cells.size() ? cells[place] : std::string{});
    if (const auto count = count_cells(cells); count > columns_.size()) {
        faults.add(file_, line,
                   "there are " + std::to_string(count) + " cells for " + std::to_string(columns_.size()) + " columns");
    }
    rows_.push_back(std::move(row));
}

std::string RowReader::needed(std::size_t column) const {
    if (cell(column).empty()) fault(column, name(column) + " is empty");
    return cell(column);
}

std::optional<int> RowReader::whole(std::size_t column, int lowest, int highest) const {
    const std::string text = needed(column);
    if (text.empty()) return std::nullopt;
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error == std::errc{} && end == text.data() + text.size() && number >= lowest && number <= highest)
        return number;
    fault(column, name(column) + " is '" + text + "', but should be a number from " + std::to_string(lowest) + " to " +
                      std::to_string(highest));
    return std::nullopt;
}

void RowReader::only_once(std::size_t column, const std::string& compared, std::map<std::string, int>& seen) const {
    if (compared.empty()) return;
    const auto [earlier, is_new] = seen.try_emplace(compared, row_.line);
    if (is_new) return;
    fault(column,
          name(column) + " '" + cell(column) + "' stands in line " + std::to_string(earlier->second) + " already");
}

bool all_small_letters(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return c >= 'a' && c <= 'z'; });
}

bool all_letters(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); });
}

}  // namespace marrowfen
