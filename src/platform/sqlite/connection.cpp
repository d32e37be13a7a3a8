#include "platform/sqlite/connection.h"

#include <sqlite3.h>

#include <new>

#include "platform/sqlite/inspection.h"
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

int flags_of(Connection::Mode mode) {
    switch (mode) {
        case Connection::Mode::ReadOnly:
            return SQLITE_OPEN_READONLY;
        case Connection::Mode::Existing:
            return SQLITE_OPEN_READWRITE;
        case Connection::Mode::Create:
            return SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    }
    return 0;
}

}  // namespace

Connection::Connection(const std::filesystem::path& file, Mode mode, std::shared_ptr<Patience> patience)
    : patience_(std::move(patience)) {
    const std::u8string path = file.u8string();
    const int flags = SQLITE_OPEN_EXRESCODE | flags_of(mode);
    if (sqlite3_open_v2(reinterpret_cast<const char*>(path.c_str()), &handle_, flags, nullptr) != SQLITE_OK) {
        open_failure_ = failure_of(handle_);
        return;
    }
    sqlite3_busy_handler(
        handle_, [](void* waiting, int /*times*/) { return static_cast<Patience*>(waiting)->wait() ? 1 : 0; },
        patience_.get());
    if (sqlite3_create_function_v2(handle_, kFoldFunction, 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY,
                                   nullptr, fold_value, nullptr, nullptr, nullptr) != SQLITE_OK) {
        open_failure_ = failure_of(handle_);
    }
}

Connection::~Connection() { sqlite3_close_v2(handle_); }

bool Connection::read_only() const { return sqlite3_db_readonly(handle_, "main") != 0; }

// A write-ahead log does not work on a folder that several computers share. EXTRA: what was saved stays saved when
// somebody pulls the plug. Anything less leaves it to the disk when it takes the journal out of its folder, and a
// journal that comes back takes back the result that was on show already. No page goes to the file before the change is
// complete, so that every journal of ours holds the first page, which tells whose journal it is.
std::optional<StoreFailure> Connection::prepare_to_write() {
    if (auto failure = run("PRAGMA synchronous = EXTRA; PRAGMA cache_spill = OFF")) return failure;
    return run("PRAGMA journal_mode = DELETE");
}

void Connection::set_inspection(std::shared_ptr<Inspection> inspection) { inspection_ = std::move(inspection); }

std::optional<StoreFailure> Connection::write_refusal() {
    return inspection_ ? inspection_->verdict(*this) : std::nullopt;
}

void Connection::note_damage(const StoreFailure& damage) {
    if (inspection_) inspection_->condemn(damage);
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
