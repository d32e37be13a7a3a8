#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "school/faults.h"

namespace marrowfen {

/// A table as a spreadsheet saves it: UTF-8 with the line ends of any system, cells parted by tabs, the names of the
/// columns in the first line. Lines that begin with # are notes. Blanks round a cell do not count.
class TabTable {
public:
    struct Row {
        int line = 0;
        std::vector<std::string> cells;  ///< in the order of the columns that were asked for
    };

    /// A file that can't be read, or has other columns, has no rows, and `faults` says so.
    TabTable(std::filesystem::path file, const std::vector<std::string>& columns, Faults& faults);
    /// Rows that somebody is writing, numbered from 1. `head_line` is 0 then.
    TabTable(const std::vector<std::string>& columns, const std::vector<std::vector<std::string>>& rows,
             Faults& faults);

    /// Whether the line with the names of the columns has this one.
    [[nodiscard]] static bool has_column(const std::filesystem::path& file, std::string_view name);

    [[nodiscard]] const std::vector<Row>& rows() const { return rows_; }
    [[nodiscard]] bool has_its_columns() const { return has_its_columns_; }
    [[nodiscard]] const std::string& column(std::size_t index) const { return columns_[index]; }
    [[nodiscard]] const std::filesystem::path& file() const { return file_; }
    /// For what is missing in the table as a whole: the line of the columns' names.
    [[nodiscard]] int head_line() const { return head_line_; }

private:
    void read(std::istream& input, Faults& faults);
    /// False: the table can't be read from here on.
    [[nodiscard]] bool take(std::string_view line, int number, Faults& faults);
    /// Finds out where each column stands in the file. False: one is missing, unknown or there twice.
    [[nodiscard]] bool take_head(const std::vector<std::string>& names, Faults& faults);
    void add_row(int line, const std::vector<std::string>& cells, Faults& faults);

    std::filesystem::path file_;
    std::vector<std::string> columns_;
    std::vector<std::size_t> places_;  ///< of the columns in the file
    std::vector<Row> rows_;
    int head_line_ = 1;
    bool has_its_columns_ = false;
};

/// Reads the cells of one row; a cell that is not as it should be becomes a fault, and the answer is nullopt or empty.
class RowReader {
public:
    RowReader(const TabTable& table, const TabTable::Row& row, Faults& faults)
        : table_(table), row_(row), faults_(faults) {}

    [[nodiscard]] const std::string& cell(std::size_t column) const { return row_.cells[column]; }
    [[nodiscard]] std::string needed(std::size_t column) const;
    [[nodiscard]] std::optional<int> whole(std::size_t column, int lowest, int highest) const;
    /// A cell that must not stand in two lines; `seen` holds the earlier ones by the form in which they are compared.
    void only_once(std::size_t column, const std::string& compared, std::map<std::string, int>& seen) const;
    void fault(std::size_t column, const std::string& reason) const {
        faults_.add(table_.file(), row_.line, reason, column);
    }
    [[nodiscard]] const std::string& name(std::size_t column) const { return table_.column(column); }
    [[nodiscard]] int line() const { return row_.line; }

private:
    const TabTable& table_;
    const TabTable::Row& row_;
    Faults& faults_;
};

[[nodiscard]] bool all_letters(std::string_view text);        ///< a to z and A to Z alone; empty: yes
[[nodiscard]] bool all_small_letters(std::string_view text);  ///< a to z alone; empty: yes

}  // namespace marrowfen
