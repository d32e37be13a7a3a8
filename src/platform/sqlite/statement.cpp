#include "platform/sqlite/statement.h"

#include <sqlite3.h>

#include <charconv>

#include "platform/sqlite/reasons.h"

namespace marrowfen {

namespace {

/// The numbers of a text such as "2026-03-09" or "09:05:00", which is as long as that and has the same mark between.
struct Parts {
    int first = 0;
    unsigned second = 0;
    unsigned third = 0;
};

template <class Number>
bool read_digits(std::string_view text, Number& number) {
    for (const char c : text) {
        if (c < '0' || c > '9') return false;
    }
    return std::from_chars(text.data(), text.data() + text.size(), number).ec == std::errc{};
}

std::optional<Parts> parts_of(std::string_view text, std::size_t first_length, char mark) {
    constexpr std::size_t kTwo = 2;
    const std::size_t second = first_length + 1;
    const std::size_t third = second + kTwo + 1;
    Parts parts;
    if (text.size() != third + kTwo || text[first_length] != mark || text[third - 1] != mark) return std::nullopt;
    const bool read = read_digits(text.substr(0, first_length), parts.first) &&
                      read_digits(text.substr(second, kTwo), parts.second) &&
                      read_digits(text.substr(third, kTwo), parts.third);
    return read ? std::optional(parts) : std::nullopt;
}

Value as_date(std::string text) {
    constexpr std::size_t kYearLength = 4;
    if (const auto parts = parts_of(text, kYearLength, '-')) {
        const std::chrono::year_month_day date{std::chrono::year{parts->first}, std::chrono::month{parts->second},
                                               std::chrono::day{parts->third}};
        if (date.ok()) return date;
    }
    return text;
}

Value as_time(std::string text) {
    constexpr std::size_t kHourLength = 2;
    constexpr int kHours = 24;
    constexpr unsigned kSixty = 60;
    if (const auto parts = parts_of(text, kHourLength, ':');
        parts && parts->first < kHours && parts->second < kSixty && parts->third < kSixty) {
        return std::chrono::hours{parts->first} + std::chrono::minutes{parts->second} +
               std::chrono::seconds{parts->third};
    }
    return text;
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
            return as_date(text(column));
        case FieldType::Time:
            return as_time(text(column));
        default:
            return text(column);
    }
}

}  // namespace marrowfen
