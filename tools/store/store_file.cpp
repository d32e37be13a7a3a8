#include "store_file.h"

#include <algorithm>
#include <string>
#include <system_error>

#include "kept_sets.h"
#include "platform/letter_case.h"
#include "platform/sqlite/connection.h"
#include "platform/sqlite/journal.h"
#include "platform/sqlite/new_row.h"
#include "platform/sqlite/schema.h"
#include "platform/sqlite/statement.h"
#include "platform/sqlite/store_check.h"
#include "platform/sqlite/structure.h"

namespace marrowfen {

namespace {

namespace fs = std::filesystem;

constexpr std::chrono::seconds kPatience{5};  // for a pupil who is being added just now

using Outcome = std::optional<StoreFailure>;  ///< none: it worked

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
Outcome drop_content(Connection& connection) {
    for (const SourceKind kind : {SourceKind::Query, SourceKind::Content}) {
        const std::string drop = kind == SourceKind::Query ? "DROP VIEW IF EXISTS " : "DROP TABLE IF EXISTS ";
        for (const Source& source : sources()) {
            if (source.kind != kind) continue;
            if (auto failure = connection.run(drop + in_brackets(source.name))) return failure;
        }
    }
    return std::nullopt;
}

Outcome fill(Connection& connection, const Content& content, const std::string& fingerprint) {
    for (const ContentTable& table : content.tables) {
        const Source* source = find_source(table.name);
        if (source == nullptr) return StoreFailure{"the store has no table " + table.name};
        for (const Values& row : table.rows) {
            if (auto failure = insert_row(connection, *source, row)) return failure;
        }
    }
    return insert_row(connection, *find_source("Built"), {fingerprint});
}

Outcome write_content(Connection& connection, const Content& content, const std::string& fingerprint) {
    Transaction transaction(connection);
    if (auto failure = transaction.begin()) return failure;
    const auto kept = with_kept_sets(connection, content);
    if (const auto* failure = kept.failure()) return *failure;
    if (auto failure = drop_content(connection)) return failure;
    if (auto failure = make_structure(connection)) return failure;
    if (auto failure = fill(connection, kept.value(), fingerprint)) return failure;
    if (auto failure = check_tables(connection)) return failure;
    return transaction.commit();
}

void remove_with_journal(const fs::path& file) {
    std::error_code ignored;
    fs::remove(file, ignored);
    remove_journal(file);
}

/// A store that is half made never bears the store's name.
Outcome create(const fs::path& file, const Content& content, const std::string& fingerprint) {
    std::error_code error;
    if (file.has_parent_path()) fs::create_directories(file.parent_path(), error);
    const fs::path unfinished = fs::path(file) += ".new";
    remove_with_journal(unfinished);
    Outcome failure;
    {
        Connection connection(unfinished, Connection::Mode::Create, kPatience);
        failure = connection.open_failure();
        if (!failure) failure = connection.prepare_to_write();
        if (!failure) failure = write_content(connection, content, fingerprint);
    }
    if (!failure) {
        remove_journal(file);  // one without its store would be played into this one
        fs::rename(unfinished, file, error);
        if (error) failure = {"it can't be put in its place (" + error.message() + ")"};
    }
    if (failure) remove_with_journal(unfinished);
    return failure;
}

Outcome bring_up_to_date(const fs::path& file, const Content& content, const std::string& fingerprint) {
    Connection connection(file, Connection::Mode::Existing, kPatience);
    if (auto failure = connection.open_failure()) return failure;
    if (auto failure = check_head(connection, file)) return failure;
    if (auto failure = check_identity(connection)) return failure;
    if (holds(connection, fingerprint)) return std::nullopt;
    if (connection.read_only()) return StoreFailure{"the file is read-only"};
    if (auto failure = check_integrity(connection)) return failure;
    if (auto failure = connection.prepare_to_write()) return failure;
    return write_content(connection, content, fingerprint);
}

/// The program finds its store without regard to case, so a store is one whatever case its name is written in.
struct FoundStores {
    std::vector<std::string> names;  ///< in the folder
    Outcome outcome;                 ///< a folder that does not answer just now may hold the pupils of a whole school
};

FoundStores stores_like(const fs::path& file) {
    FoundStores found;
    std::error_code error;
    const fs::path folder = file.has_parent_path() ? file.parent_path() : ".";
    if (fs::symlink_status(folder, error).type() == fs::file_type::not_found) return found;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        std::string name = entry->path().filename().string();
        if (same_name(name, file.filename().string())) found.names.push_back(std::move(name));
    }
    if (error) found.outcome = {"its folder can't be read (" + error.message() + ")"};
    std::ranges::sort(found.names);
    return found;
}

}  // namespace

std::optional<StoreFailure> write_store(const fs::path& file, const Content& content) {
    const std::string fingerprint = fingerprint_of(content);
    const FoundStores found = stores_like(file);
    if (found.outcome) return found.outcome;
    if (found.names.empty()) return create(file, content, fingerprint);
    if (found.names.size() > 1) {
        return StoreFailure{found.names[0] + " and " + found.names[1] +
                            " can't both be the data store; move one of them away"};
    }
    const fs::path store = file.parent_path() / found.names.front();
    if (std::error_code error; fs::is_symlink(store, error) && !fs::exists(store, error)) {
        return create(fs::weakly_canonical(store, error), content, fingerprint);  // the folder that it leads to is bare
    }
    if (auto failure = check_place(store)) return failure;
    return bring_up_to_date(store, content, fingerprint);
}

}  // namespace marrowfen
