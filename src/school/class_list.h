#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/register.h"
#include "school/csv.h"

namespace marrowfen {

/// A class list as somebody pasted it or a school's office saved it: one name a line, or a table with a column of
/// names.
class ClassList {
public:
    struct Line {
        int number = 0;  ///< in the text, from 1
        std::string name;
        std::string fault;  ///< why the name can't be taken, as the rest of a sentence; empty: it can
    };

    /// `bytes` may have any encoding that spreadsheets write.
    explicit ClassList(std::string bytes);

    /// What the columns are called; "Column 1" and so on where the list has no line of titles.
    [[nodiscard]] const std::vector<std::string>& columns() const { return columns_; }
    /// The one that most likely holds the names.
    [[nodiscard]] std::size_t likely_column() const;
    /// Every line with what becomes of it. A name counts once, however often it stands in the list.
    [[nodiscard]] std::vector<Line> lines(std::size_t column, const std::vector<KeptPupil>& pupils) const;

private:
    std::vector<CsvRow> rows_;
    std::vector<std::string> columns_;
};

/// The names that can be taken.
[[nodiscard]] std::vector<std::string> good_names(const std::vector<ClassList::Line>& lines);

}  // namespace marrowfen
