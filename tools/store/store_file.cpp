#include "store_file.h"

#include <array>
#include <string>
#include <system_error>

#include "platform/sqlite/connection.h"
#include "platform/sqlite/new_row.h"
#include "platform/sqlite/schema.h"
#include "platform/sqlite/sqlite_store.h"
#include "platform/sqlite/statement.h"
#include "platform/sqlite/store_check.h"

namespace marrowfen {

namespace {

namespace fs = std::filesystem;

using Failure = std::optional<StoreFailure>;

/// Tells whether two texts are the same; nobody has a reason to forge it (FNV-1a).
class Fingerprint {
public:
    void add(std::string_view text) {
        for (const char c : text) add_byte(static_cast<unsigned char>(c));
        add_byte(kEndOfText);
    }

    [[nodiscard]] std::string in_hexadecimal() const {
        constexpr std::string_view kDigits = "0123456789abcdef";
        constexpr unsigned kBits = 64;
        constexpr unsigned kDigitBits = 4;
        std::string text;
        for (unsigned shift = kBits; shift > 0; shift -= kDigitBits) {
            text += kDigits[(hash_ >> (shift - kDigitBits)) & (kDigits.size() - 1)];
        }
        return text;
    }

private:
    void add_byte(unsigned char byte) { hash_ = (hash_ ^ byte) * 0x100000001B3U; }

    static constexpr unsigned char kEndOfText = 0xFF;  // in no UTF-8 text
    std::uint64_t hash_ = 0xCBF29CE484222325U;
};

std::string fingerprint_of(const Content& content) {
    Fingerprint fingerprint;
    for (const Source& source : sources()) {
        for (const std::string& statement : creation_of(source)) fingerprint.add(statement);
    }
    for (const ContentTable& table : content.tables) {
        fingerprint.add(table.name);
        for (const Values& row : table.rows) {
            for (const Value& value : row) fingerprint.add(std::to_string(value.index()) + as_text(value));
        }
    }
    return fingerprint.in_hexadecimal();
}

bool holds(Connection& connection, const std::string& fingerprint) {
    if (check_tables(connection)) return false;
    Statement built(connection, "SELECT count(*) FROM Built WHERE fingerprint = ?");
    built.bind(fingerprint);
    return built.step() == Statement::Step::Row && built.whole(0) == 1;
}

/// Views go first, since they stand on the tables.
Failure drop_content(Connection& connection) {
    for (const SourceKind kind : {SourceKind::Query, SourceKind::Content}) {
        const std::string drop = kind == SourceKind::Query ? "DROP VIEW IF EXISTS " : "DROP TABLE IF EXISTS ";
        for (const Source& source : sources()) {
            if (source.kind != kind) continue;
            if (auto failure = connection.run(drop + in_brackets(source.name))) return failure;
        }
    }
    return std::nullopt;
}

Failure create_sources(Connection& connection) {
    for (const Source& source : sources()) {
        for (const std::string& statement : creation_of(source)) {
            if (auto failure = connection.run(statement)) return failure;
        }
    }
    return std::nullopt;
}

Failure fill(Connection& connection, const Content& content, const std::string& fingerprint) {
    for (const ContentTable& table : content.tables) {
        const Source* source = find_source(table.name);
        if (source == nullptr) return StoreFailure{"the store has no table " + table.name};
        for (const Values& row : table.rows) {
            if (auto failure = insert_row(connection, *source, row)) return failure;
        }
    }
    return insert_row(connection, *find_source("Built"), {fingerprint});
}

Failure write_content(Connection& connection, const Content& content, const std::string& fingerprint) {
    Transaction transaction(connection);
    if (auto failure = transaction.begin()) return failure;
    if (auto failure = drop_content(connection)) return failure;
    if (auto failure = create_sources(connection)) return failure;
    if (auto failure = fill(connection, content, fingerprint)) return failure;
    if (auto failure = connection.run("PRAGMA application_id = " + std::to_string(kApplicationId))) return failure;
    if (auto failure = connection.run("PRAGMA user_version = " + std::to_string(kSchemaVersion))) return failure;
    if (auto failure = check_tables(connection)) return failure;
    return transaction.commit();
}

/// A journal without its store would be played into the next file of that name.
void remove_journal(const fs::path& file) {
    std::error_code ignored;  // what can't be removed shows in the step that follows
    for (const char* ending : {"-journal", "-wal", "-shm"}) fs::remove(fs::path(file) += ending, ignored);
}

void remove_with_journal(const fs::path& file) {
    std::error_code ignored;
    fs::remove(file, ignored);
    remove_journal(file);
}

/// A store that is half made never bears the store's name.
Failure create(const fs::path& file, const Content& content, const std::string& fingerprint) {
    std::error_code error;
    if (file.has_parent_path()) fs::create_directories(file.parent_path(), error);
    const fs::path unfinished = fs::path(file) += ".new";
    remove_with_journal(unfinished);
    Failure failure;
    {
        Connection connection(unfinished, Connection::Mode::Create, SqliteStoreEngine::kBusyTimeout);
        failure = connection.open_failure();
        if (!failure) failure = connection.prepare_to_write();
        if (!failure) failure = write_content(connection, content, fingerprint);
    }
    if (!failure) {
        remove_journal(file);
        fs::rename(unfinished, file, error);
        if (error) failure = {"it can't be put in its place (" + error.message() + ")"};
    }
    if (failure) remove_with_journal(unfinished);
    return failure;
}

Failure bring_up_to_date(const fs::path& file, const Content& content, const std::string& fingerprint) {
    Connection connection(file, Connection::Mode::Existing, SqliteStoreEngine::kBusyTimeout);
    if (auto failure = connection.open_failure()) return failure;
    if (auto failure = check_identity(connection)) return failure;
    if (holds(connection, fingerprint)) return std::nullopt;
    if (connection.read_only()) return StoreFailure{"the file is read-only"};
    if (auto failure = connection.prepare_to_write()) return failure;
    return write_content(connection, content, fingerprint);
}

}  // namespace

std::optional<StoreFailure> write_store(const fs::path& file, const Content& content) {
    const std::string fingerprint = fingerprint_of(content);
    std::error_code error;
    const auto status = fs::symlink_status(file, error);
    // Only when that is certain: a drive that does not answer just now may hold the pupils of a whole school.
    if (status.type() == fs::file_type::not_found) return create(file, content, fingerprint);
    if (auto failure = check_place(file)) return failure;
    return bring_up_to_date(file, content, fingerprint);
}

}  // namespace marrowfen
