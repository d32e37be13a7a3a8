#include "platform/sqlite/statement.h"

#include <sqlite3.h>

#include <new>
#include <utility>

#include "platform/sqlite/reasons.h"

namespace marrowfen {

namespace {

template <class Read>
Value read_or_text(std::string text, const Read& read) {
    const auto value = read(text);
    return value ? Value{*value} : Value{std::move(text)};
}

}  // namespace

Statement::Statement(Connection& connection, const std::string& sql) : connection_(connection) {
    note(sqlite3_prepare_v2(connection.handle(), sql.c_str(), static_cast<int>(sql.size() + 1), &handle_, nullptr));
}

Statement::~Statement() { sqlite3_finalize(handle_); }

void Statement::note(int result) {
    if (failed_ || result == SQLITE_OK || result == SQLITE_ROW || result == SQLITE_DONE) return;
    failed_ = true;
    failure_ = failure_of(connection_.handle());
    if (failure_.trouble == Trouble::Damaged) connection_.note_damage(failure_);
}

void Statement::bind(const Value& value) {
    ++bound_;
    if (failed_ || std::holds_alternative<std::monostate>(value)) return;  // what is not bound is Null
    if (const auto* whole = std::get_if<std::int64_t>(&value)) {
        note(sqlite3_bind_int64(handle_, bound_, *whole));
    } else {
        const std::string bytes = as_text(value);
        note(sqlite3_bind_text64(handle_, bound_, bytes.data(), bytes.size(), SQLITE_TRANSIENT, SQLITE_UTF8));
    }
}

Statement::Step Statement::step() {
    if (failed_) return Step::Failed;
    const int result = sqlite3_step(handle_);
    note(result);
    if (failed_) return Step::Failed;
    return result == SQLITE_ROW ? Step::Row : Step::Done;
}

std::int64_t Statement::whole(int column) const { return sqlite3_column_int64(handle_, column); }

std::string Statement::text(int column) const {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(handle_, column));
    if (bytes == nullptr) throw std::bad_alloc();  // not Null, so there was no memory for it
    return {bytes, static_cast<std::size_t>(sqlite3_column_bytes(handle_, column))};
}

Value Statement::value(int column, FieldType type) const {
    switch (sqlite3_column_type(handle_, column)) {
        case SQLITE_NULL:
            return {};
        case SQLITE_INTEGER:
            return whole(column);
        default:
            break;
    }
    switch (type) {
        case FieldType::Date:
            return read_or_text(text(column), date_in);
        case FieldType::Time:
            return read_or_text(text(column), time_in);
        default:
            return text(column);
    }
}

}  // namespace marrowfen
