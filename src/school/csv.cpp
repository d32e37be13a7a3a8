#include "school/csv.h"

#include <csv.h>

#include <algorithm>
#include <array>
#include <memory>
#include <new>

namespace marrowfen {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kCalculated = "=+-@\t\r";
constexpr char kApostrophe = '\'';

char separator_of(std::string_view text) {
    const std::string_view first_line = text.substr(0, text.find_first_of("\r\n"));
    constexpr std::array kSeparators{',', ';', '\t'};
    return *std::ranges::max_element(kSeparators, {}, [&](char c) { return std::ranges::count(first_line, c); });
}

bool is_calculated(std::string_view text) {
    return !text.empty() && kCalculated.find(text.front()) != std::string_view::npos;
}

/// Takes the library's cells and rows.
struct Rows {
    std::vector<CsvRow> rows;
    CsvCells cells;
    int line = 1;
    int lines_in_row = 0;

    void take(std::string_view cell) {
        // A line end inside a cell is a carriage return, a line feed, or both in this order.
        for (std::size_t i = 0; i < cell.size(); ++i) {
            if (cell[i] == '\n' || (cell[i] == '\r' && cell.substr(i + 1, 1) != "\n")) ++lines_in_row;
        }
        cells.emplace_back(cell);
    }
    void end_row(int mark) {
        constexpr int kNoMark = -1;  // the library says so at a line end that follows no cell
        const bool empty = std::ranges::all_of(cells, &std::string::empty);
        if (!empty) rows.push_back({line, cells});
        cells.clear();
        line += lines_in_row + (mark == kNoMark ? 0 : 1);
        lines_in_row = 0;
    }
};

struct Parser {
    csv_parser handle{};
    explicit Parser(char separator) {
        if (csv_init(&handle, CSV_REPALL_NL) != 0) throw std::bad_alloc();
        csv_set_delim(&handle, static_cast<unsigned char>(separator));
    }
    ~Parser() { csv_free(&handle); }
    Parser(const Parser&) = delete;
    Parser& operator=(const Parser&) = delete;
};

/// Every line end as one line feed, so that the library's count of lines is that of the person's editor.
std::string with_plain_line_ends(std::string_view text) {
    std::string plain;
    plain.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\r') {
            plain += text[i];
        } else if (text.substr(i + 1, 1) != "\n") {
            plain += '\n';
        }
    }
    return plain;
}

}  // namespace

std::vector<CsvRow> read_csv(std::string_view text) {
    if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
    const std::string plain = with_plain_line_ends(text);
    Parser parser(separator_of(plain));
    Rows rows;
    const auto on_cell = [](void* bytes, std::size_t size, void* out) {
        static_cast<Rows*>(out)->take({static_cast<const char*>(bytes), size});
    };
    const auto on_row = [](int mark, void* out) { static_cast<Rows*>(out)->end_row(mark); };
    if (csv_parse(&parser.handle, plain.data(), plain.size(), on_cell, on_row, &rows) != plain.size() ||
        csv_fini(&parser.handle, on_cell, on_row, &rows) != 0) {
        throw std::bad_alloc();  // nothing else can fail where the library is not strict
    }
    return std::move(rows.rows);
}

CsvWriter::CsvWriter(std::ostream& output) : output_(output) { output_ << kByteOrderMark; }

void CsvWriter::write(const CsvCells& cells) {
    std::string line;
    for (const std::string& cell : cells) {
        if (&cell != &cells.front()) line += ',';
        if (cell.find_first_of(",;\"\r\n\t") == std::string::npos && !cell.starts_with(' ') && !cell.ends_with(' ')) {
            line += cell;
            continue;
        }
        std::string quoted(csv_write(nullptr, 0, cell.data(), cell.size()), '\0');
        csv_write(quoted.data(), quoted.size(), cell.data(), cell.size());
        line += quoted;
    }
    output_ << line << "\r\n";
}

std::string harmless(std::string_view text) {
    const bool might_be_taken_for_ours = text.starts_with(kApostrophe);
    return (is_calculated(text) || might_be_taken_for_ours ? "'" : "") + std::string(text);
}

std::string without_harmlessness(std::string_view cell) {
    const std::string_view rest = cell.substr(std::min<std::size_t>(1, cell.size()));
    if (cell.starts_with(kApostrophe) && (is_calculated(rest) || rest.starts_with(kApostrophe)))
        return std::string(rest);
    return std::string(cell);
}

}  // namespace marrowfen
