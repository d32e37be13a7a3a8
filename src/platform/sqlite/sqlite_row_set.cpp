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

void SqliteRowSet::stand_on(Wanted wanted, std::int64_t number) {
    rows_ = PagedRows(connection_, source_, std::move(wanted));
    rows_.read_up_to(number);
    number_ = number;
}

bool SqliteRowSet::at_end() const { return rows_.find(std::max<std::int64_t>(number_, 0)) == nullptr; }

std::int64_t SqliteRowSet::row_count() const {
    if (rows_.count_in_memory() > 0 || rows_.wanted() == kWhole) return rows_.count_in_memory();
    return PagedRows(connection_, source_, kWhole).count_in_memory();
}

void SqliteRowSet::move_first() {
    new_row_.reset();
    stand_on(kWhole, 0);
}

void SqliteRowSet::move_forward(std::int64_t rows) {
    new_row_.reset();
    if (rows <= 0 || at_end()) return;
    if (rows_.wanted() != kWhole) {
        const std::int64_t up_to_here = rows_.count_of_others_up_to(number_, kWhole);
        if (rows_.failure()) return give_up_place();
        stand_on(kWhole, up_to_here - 1);
    }
    number_ = rows > std::numeric_limits<std::int64_t>::max() - std::max<std::int64_t>(number_, 0)
                  ? std::numeric_limits<std::int64_t>::max()
                  : number_ + rows;
    rows_.read_up_to(number_);
}

void SqliteRowSet::find_first(std::string_view criterion) {
    new_row_.reset();
    stand_on(parse_criterion(criterion, source_), 0);
    no_match_ = at_end();
}

void SqliteRowSet::find_next(std::string_view criterion) {
    new_row_.reset();
    auto wanted = parse_criterion(criterion, source_);
    if (wanted == rows_.wanted()) {
        if (!at_end()) rows_.read_up_to(++number_);
    } else {
        const std::int64_t up_to_here = rows_.count_of_others_up_to(number_, wanted);
        if (rows_.failure()) {
            give_up_place();
        } else {
            stand_on(std::move(wanted), up_to_here);
        }
    }
    no_match_ = at_end();
}

Value SqliteRowSet::field(std::string_view name) const {
    if (new_row_) return new_row_->field(name);
    const Row* row = rows_.find(number_);
    const Field* field = find_field(source_, name);
    return row && field ? row->values[static_cast<std::size_t>(field - source_.fields.data())] : Value{};
}

void SqliteRowSet::add_row() {
    new_row_.reset();  // first, so that a row given up does not stand in the way of the next
    new_row_.emplace(connection_, source_);
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
    Statement statement(*connection_, delete_text(source_));
    statement.bind(row->rowid);
    if (statement.step() == Statement::Step::Failed) return statement.failure();
    stand_on(kWhole, -1);
    return std::nullopt;
}

}  // namespace marrowfen
