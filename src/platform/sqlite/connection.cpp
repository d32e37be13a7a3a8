#include "platform/sqlite/connection.h"

#include <sqlite3.h>

#include <new>

#include "platform/sqlite/query_text.h"
#include "platform/sqlite/reasons.h"
#include "platform/text/folding.h"

namespace marrowfen {

namespace {

/// The folded form inside a query, for text that has no companion column. Only queries of ours can use it: a table or
/// view that did could not be opened by any other program.
void fold_value(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(values[0]));
    if (text == nullptr) return;  // Null stays Null
    try {
        const std::string result = folded({text, static_cast<std::size_t>(sqlite3_value_bytes(values[0]))});
        sqlite3_result_text64(context, result.data(), result.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    }
}

}  // namespace

Connection::Connection(const std::filesystem::path& file, Mode mode, std::chrono::milliseconds busy_timeout) {
    const std::u8string path = file.u8string();
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_EXRESCODE | (mode == Mode::Create ? SQLITE_OPEN_CREATE : 0);
    if (sqlite3_open_v2(reinterpret_cast<const char*>(path.c_str()), &handle_, flags, nullptr) != SQLITE_OK) {
        open_failure_ = failure_of(handle_);
        return;
    }
    sqlite3_busy_timeout(handle_, static_cast<int>(busy_timeout.count()));
    if (sqlite3_create_function_v2(handle_, kFoldFunction, 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY,
                                   nullptr, fold_value, nullptr, nullptr, nullptr) != SQLITE_OK) {
        open_failure_ = failure_of(handle_);
    }
}

Connection::~Connection() { sqlite3_close_v2(handle_); }

bool Connection::read_only() const { return sqlite3_db_readonly(handle_, "main") != 0; }

// A write-ahead log does not work on a folder that several computers share. FULL: what was saved stays saved when
// somebody pulls the plug.
std::optional<StoreFailure> Connection::prepare_to_write() {
    if (auto failure = run("PRAGMA synchronous = FULL")) return failure;
    return run("PRAGMA journal_mode = DELETE");
}

std::optional<StoreFailure> Connection::run(const std::string& sql) {
    if (sqlite3_exec(handle_, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK) return std::nullopt;
    return failure_of(handle_);
}

Transaction::~Transaction() {
    // The library takes some transactions back by itself when a write fails.
    if (!open_ || sqlite3_get_autocommit(connection_.handle()) != 0) return;
    sqlite3_exec(connection_.handle(), "ROLLBACK", nullptr, nullptr, nullptr);
}

std::optional<StoreFailure> Transaction::begin() {
    auto failure = connection_.run("BEGIN IMMEDIATE");
    open_ = !failure;
    return failure;
}

std::optional<StoreFailure> Transaction::commit() {
    auto failure = connection_.run("COMMIT");
    if (!failure) open_ = false;
    return failure;
}

}  // namespace marrowfen
