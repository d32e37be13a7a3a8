#include "platform/sqlite/sqlite_row_set.h"

#include <algorithm>
#include <limits>

#include "platform/sqlite/statement.h"

namespace marrowfen {

namespace {

const Criterion kWhole;  // every row fits

}  // namespace

SqliteRowSet::SqliteRowSet(std::shared_ptr<Connection> connection, const Source& source)
    : connection_(std::move(connection)), source_(source), rows_(connection_, source, kWhole) {}

// The rows of another search take the place of these once they could be read.
Result<bool> SqliteRowSet::search(Wanted wanted, std::int64_t number) {
    PagedRows rows(connection_, source_, std::move(wanted));
    auto there = rows.reach(number);
    if (there.failure()) return there;
    rows_ = std::move(rows);
    number_ = number;
    return there;
}

Result<bool> SqliteRowSet::go_to(std::int64_t number) {
    auto there = rows_.reach(number);
    if (!there.failure()) number_ = there.value() ? number : rows_.count_in_memory();
    return there;
}

Result<bool> SqliteRowSet::move_first() {
    new_row_.reset();
    return search(kWhole, 0);
}

Result<bool> SqliteRowSet::move_forward(std::int64_t rows) {
    new_row_.reset();
    if (rows <= 0) return rows_.reach(number_);
    const auto beyond = [rows](std::int64_t number) {
        constexpr auto kLast = std::numeric_limits<std::int64_t>::max();
        return rows > kLast - std::max<std::int64_t>(number, 0) ? kLast : number + rows;
    };
    if (rows_.wanted() == kWhole) return go_to(beyond(number_));
    auto here = rows_.reach(number_);
    if (!here.value_or(false)) return here;
    const auto up_to_here = rows_.count_of_others_up_to(number_, kWhole);
    if (const auto* failure = up_to_here.failure()) return *failure;
    return search(kWhole, beyond(up_to_here.value() - 1));
}

Result<bool> SqliteRowSet::find_first(std::string_view criterion) {
    new_row_.reset();
    return search(parse_criterion(criterion, source_), 0);
}

Result<bool> SqliteRowSet::find_next(std::string_view criterion) {
    new_row_.reset();
    auto wanted = parse_criterion(criterion, source_);
    if (wanted == rows_.wanted()) return go_to(number_ + 1);
    const auto up_to_here = rows_.count_of_others_up_to(number_, wanted);
    if (const auto* failure = up_to_here.failure()) return *failure;
    return search(std::move(wanted), up_to_here.value());
}

Value SqliteRowSet::field(std::string_view name) const {
    if (new_row_) return new_row_->field(name);
    const Row* row = rows_.find(number_);
    const Field* field = find_field(source_, name);
    return row && field ? row->values[static_cast<std::size_t>(field - source_.fields.data())] : Value{};
}

std::optional<StoreFailure> SqliteRowSet::add_row() {
    new_row_.reset();  // first, so that a row given up does not stand in the way of the next
    new_row_.emplace(connection_, source_);
    auto failure = new_row_->begin();
    if (failure) new_row_.reset();
    return failure;
}

void SqliteRowSet::set_field(std::string_view name, Value value) {
    if (new_row_) new_row_->set(name, std::move(value));
}

std::optional<StoreFailure> SqliteRowSet::update() {
    if (!new_row_) return StoreFailure{"no new row was begun"};
    auto failure = new_row_->store();
    new_row_.reset();
    return failure;
}

std::optional<StoreFailure> SqliteRowSet::delete_row() {
    new_row_.reset();
    const Row* row = rows_.find(number_);
    if (row == nullptr || source_.kind != SourceKind::Lasting) {
        return StoreFailure{"there is no row here that can be removed"};
    }
    if (auto refusal = connection_->write_refusal()) return refusal;
    Statement statement(*connection_, delete_text(source_));
    statement.bind(row->rowid);
    if (statement.step() == Statement::Step::Failed) return statement.failure();
    rows_ = PagedRows(connection_, source_, kWhole);
    number_ = -1;
    return std::nullopt;
}

}  // namespace marrowfen
