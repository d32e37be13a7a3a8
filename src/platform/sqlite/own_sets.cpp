#include "platform/sqlite/own_sets.h"

#include <algorithm>

#include "platform/sqlite/new_row.h"
#include "platform/sqlite/query_text.h"
#include "platform/sqlite/statement.h"

namespace marrowfen {

namespace {

using Step = Statement::Step;

/// nullptr: no program replaces it.
const Source* find_content(std::string_view table) {
    const Source* source = find_source(table);
    return source && source->kind == SourceKind::Content ? source : nullptr;
}

StoreFailure no_content(std::string_view table) {
    return {"the store has no words, sentences or games called " + std::string(table)};
}

/// A store of an older program lists every game.
std::optional<StoreFailure> renew_lists(Connection& connection) {
    for (const Source& source : sources()) {
        if (source.kind != SourceKind::Query) continue;
        if (auto failure = connection.run("DROP VIEW IF EXISTS " + in_brackets(source.name))) return failure;
        for (const std::string& statement : creation_of(source)) {
            if (auto failure = connection.run(statement)) return failure;
        }
    }
    return std::nullopt;
}

}  // namespace

Result<std::vector<std::string>> own_sets(Connection& connection) {
    std::vector<std::string> names;
    Statement there(connection, "SELECT 1 FROM sqlite_schema WHERE type = 'table' AND name = 'Own_sets'");
    const auto is_there = there.step();
    if (is_there == Step::Failed) return there.failure();
    if (is_there == Step::Done) return names;
    Statement select(connection, "SELECT name FROM Own_sets");
    auto step = select.step();
    for (; step == Step::Row; step = select.step()) names.push_back(as_text(select.value(0, FieldType::Text)));
    if (step == Step::Failed) return select.failure();
    return names;
}

std::optional<StoreFailure> note_maker(Connection& connection, const Source& table, Maker maker) {
    if (auto failure = connection.run("CREATE TABLE IF NOT EXISTS Own_sets (name TEXT PRIMARY KEY NOT NULL)")) {
        return failure;
    }
    Statement note(connection, maker == Maker::Teacher ? "INSERT OR IGNORE INTO Own_sets VALUES (?)"
                                                       : "DELETE FROM Own_sets WHERE name = ?");
    note.bind(table.name);
    return note.step() == Step::Failed ? std::optional(note.failure()) : std::nullopt;
}

Result<std::vector<Values>> rows_in(Connection& connection, const Source& table) {
    constexpr std::int64_t kAll = -1;
    std::vector<Values> rows;
    Statement select(connection, select_text(table, Criterion{}));
    select.bind(kAll);
    select.bind(std::int64_t{0});
    auto step = select.step();
    for (; step == Step::Row; step = select.step()) {
        Values row;
        for (const Field& field : table.fields) {
            row.push_back(select.value(static_cast<int>(row.size()) + 1, field.type));
        }
        rows.push_back(std::move(row));
    }
    if (step == Step::Failed) return select.failure();
    return rows;
}

Result<Maker> SqliteContentKeeper::maker_of(std::string_view table) {
    const Source* source = find_content(table);
    if (source == nullptr) return no_content(table);
    const auto own = own_sets(*connection_);
    if (const auto* failure = own.failure()) return *failure;
    return std::ranges::count(own.value(), source->name) > 0 ? Maker::Teacher : Maker::Marrowfen;
}

Result<std::vector<Values>> SqliteContentKeeper::rows_of(std::string_view table) {
    const Source* source = find_content(table);
    if (source == nullptr) return no_content(table);
    return rows_in(*connection_, *source);
}

std::optional<StoreFailure> SqliteContentKeeper::replace(std::string_view table, const std::vector<Values>& rows,
                                                         Maker maker) {
    const Source* source = find_content(table);
    if (source == nullptr) return no_content(table);
    Transaction transaction(*connection_);
    if (auto failure = transaction.begin()) return failure;
    if (auto failure = connection_->run("DELETE FROM " + in_brackets(source->name))) return failure;
    for (const Values& row : rows) {
        if (auto failure = insert_row(*connection_, *source, row)) return failure;
    }
    if (auto failure = note_maker(*connection_, *source, maker)) return failure;
    if (auto failure = renew_lists(*connection_)) return failure;
    return transaction.commit();
}

}  // namespace marrowfen
