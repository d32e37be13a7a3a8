#include "school/word_sets.h"

#include <algorithm>
#include <cctype>

#include "core/game_table.h"
#include "platform/letter_case.h"

namespace marrowfen {

namespace {

using Form = SetKind::Form;

enum GameColumn : std::uint8_t { kGame, kNumber, kName, kListed };
constexpr const char* kYes = "yes";
constexpr const char* kNo = "no";

std::string file_for(std::string_view table) {
    std::string name(table);
    std::ranges::transform(name, name.begin(),
                           [](unsigned char c) { return c == '_' ? '-' : static_cast<char>(std::tolower(c)); });
    return name + ".tsv";
}

std::vector<SetKind> make_kinds() {
    std::vector<SetKind> kinds;
    for (const Game& game : listed_games()) {
        const std::string table(game.content_table);
        if (table.empty()) continue;
        const std::string stage(1, table.back());
        const bool rhymes = game.rhyme_groups > 0;
        kinds.push_back({.form = rhymes ? Form::Rhymes : Form::Sentences,
                         .title = (rhymes ? "Rhymes, Key Stage " : "Sentences, Key Stage ") + stage,
                         .word = (rhymes ? "rhymes" : "sentences") + stage,
                         .table = table,
                         .file = file_for(table),
                         .columns = rhymes ? kWordColumns : kSentenceColumns,
                         .titles = rhymes ? std::vector<std::string>{"Group", "Word", "Ending"}
                                          : std::vector<std::string>{"Number", "Sentence", "Verb", "Noun", "Adjective"},
                         .groups = game.rhyme_groups});
    }
    std::ranges::sort(kinds, {}, &SetKind::title);
    kinds.push_back({.form = Form::Games,
                     .title = "List of games",
                     .word = "games",
                     .table = "Templates",
                     .file = "games.tsv",
                     .columns = {"Template_ID", "GameNumber", "GameName", "Listed"},
                     .titles = {"Kind of game", "Number", "Name", "In the list"},
                     .groups = 0});
    return kinds;
}

void check_games(const TabTable& table, Faults& faults) {
    GameNames names({.id = kGame, .number = kNumber, .name = kName});
    bool one_is_listed = false;
    for (const TabTable::Row& line : table.rows()) {
        const RowReader row(table, line, faults);
        (void)names.read(row);
        const std::string& listed = row.cell(kListed);
        if (!same_name(listed, kYes) && !same_name(listed, kNo)) {
            row.fault(kListed, row.name(kListed) + " is '" + listed + "', but should be yes or no");
        }
        one_is_listed = one_is_listed || same_name(listed, kYes);
    }
    names.finish(table, faults);
    if (!one_is_listed) faults.add(table.file(), table.head_line(), "no game is left in the list");
}

/// The rows for the store; those of the games as far as a teacher writes them.
std::vector<Values> checked(const SetKind& kind, const TabTable& table, Faults& faults) {
    switch (kind.form) {
        case Form::Rhymes:
            return read_words(table, kind.table, kind.groups, faults).rows;
        case Form::Sentences:
            return read_sentences(table, kind.table, faults).rows;
        case Form::Games:
            check_games(table, faults);
            break;
    }
    return {};
}

std::int64_t whole(const std::string& text) { return as_whole(Value{text}); }

/// The games as they are in the store, with the names, numbers and places that were written.
void rename(std::vector<Values>& games, const SetRows& written) {
    for (const SetRow& row : written) {
        for (Values& game : games) {
            if (as_text(game[kGame]) != row[kGame]) continue;
            game[kNumber] = same_name(row[kListed], kNo) ? -whole(row[kNumber]) : whole(row[kNumber]);
            game[kName] = row[kName];
        }
    }
}

SetRow as_cells(const SetKind& kind, const Values& values) {
    SetRow row;
    if (kind.form == Form::Games) {
        const std::int16_t number = as_whole(values[kNumber]);
        return {as_text(values[kGame]), std::to_string(std::abs(number)), as_text(values[kName]),
                number > 0 ? kYes : kNo};
    }
    for (std::size_t column = 0; column < kind.columns.size(); ++column) row.push_back(as_text(values[column]));
    return row;
}

SetRows rows_of(const TabTable& table) {
    SetRows rows;
    for (const TabTable::Row& row : table.rows()) rows.push_back(row.cells);
    return rows;
}

}  // namespace

const std::vector<SetKind>& set_kinds() {
    static const std::vector<SetKind> kKinds = make_kinds();
    return kKinds;
}

std::vector<Faults::Place> faults_in(const SetKind& kind, const SetRows& rows) {
    Faults faults;
    const TabTable table(kind.titles, rows, faults);
    (void)checked(kind, table, faults);
    return faults.places();
}

Result<WordSets::Set> WordSets::read(const SetKind& kind) {
    const auto maker = keeper_.maker_of(kind.table);
    if (const auto* failure = maker.failure()) return *failure;
    const auto rows = keeper_.rows_of(kind.table);
    if (const auto* failure = rows.failure()) return *failure;
    Set set{.rows = {}, .maker = maker.value()};
    for (const Values& values : rows.value()) set.rows.push_back(as_cells(kind, values));
    if (kind.form == Form::Games)
        std::ranges::sort(set.rows, {}, [](const SetRow& row) { return whole(row[kNumber]); });
    return set;
}

std::optional<StoreFailure> WordSets::keep(const SetKind& kind, const SetRows& rows) {
    return keep_as(kind, rows, Maker::Teacher);
}

std::optional<StoreFailure> WordSets::go_back(const SetKind& kind) {
    Faults faults;
    const SetRows rows = read_set(kind, came_with_ / kind.file, faults);
    if (!faults.none()) {
        return StoreFailure{"what came with Marrowfen can't be read (" + faults.lines().front() + ")"};
    }
    return keep_as(kind, rows, Maker::Marrowfen);
}

std::optional<StoreFailure> WordSets::keep_as(const SetKind& kind, const SetRows& rows, Maker maker) {
    Faults faults;
    const TabTable table(kind.titles, rows, faults);
    auto values = checked(kind, table, faults);
    if (!faults.none()) {
        const Faults::Place& first = faults.places().front();
        return StoreFailure{(first.line > 0 ? "in line " + std::to_string(first.line) + " " : "") + first.reason};
    }
    if (kind.form == Form::Games) {
        auto games = keeper_.rows_of(kind.table);
        if (const auto* failure = games.failure()) return *failure;
        values = std::move(games).value();
        rename(values, rows_of(table));
    }
    return keeper_.replace(kind.table, values, maker);
}

SetRows read_set(const SetKind& kind, const std::filesystem::path& file, Faults& faults) {
    // A list of games as it came with the program has more columns, and all of them are listed.
    if (kind.form == Form::Games && TabTable::has_column(file, "dragtype")) {
        const TabTable table(file,
                             {"Template_ID", "GameNumber", "GameName", "Panels", "dragtype", "droptype",
                              "backgroundletters", "Split", "background", "pics"},
                             faults);
        SetRows rows;
        for (const TabTable::Row& row : table.rows()) rows.push_back({row.cells[0], row.cells[1], row.cells[2], kYes});
        return rows;
    }
    return rows_of(TabTable(file, kind.columns, faults));
}

FileFailure write_set(const SetKind& kind, const SetRows& rows, const std::filesystem::path& file) {
    return write_whole_file(file, [&](std::ostream& output) {
        const auto write = [&output](const SetRow& cells) {
            std::string line;
            for (const std::string& cell : cells) {
                line += line.empty() && &cell == &cells.front() ? "" : "\t";
                if (!cell.starts_with('"')) {
                    line += cell;
                    continue;
                }
                line += '"';
                for (const char c : cell) line.append(c == '"' ? 2 : 1, c);
                line += '"';
            }
            output << line << '\n';
        };
        write(kind.columns);
        for (const SetRow& row : rows) write(row);
        return output.good();
    });
}

}  // namespace marrowfen
