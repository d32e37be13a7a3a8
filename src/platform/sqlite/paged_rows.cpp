#include "platform/sqlite/paged_rows.h"

#include <algorithm>

#include "platform/sqlite/statement.h"

namespace marrowfen {

namespace {

constexpr std::int64_t kFirstPage = 16;  // more than a list of best results or a rhyme group needs

void bind_values(Statement& statement, const Wanted& wanted) {
    if (!wanted) return;
    for (const Condition& condition : *wanted) statement.bind(condition.value);
}

}  // namespace

PagedRows::PagedRows(std::shared_ptr<Connection> connection, const Source& source, Wanted wanted)
    : connection_(std::move(connection)), source_(&source), wanted_(std::move(wanted)), complete_(!wanted_) {}

Result<bool> PagedRows::reach(std::int64_t number) {
    if (source_->fields.empty()) return StoreFailure{"there is no table or list of that name in it"};
    while (!complete_ && number >= count_in_memory()) {
        if (auto failure = read_page()) return *std::move(failure);
    }
    return find(number) != nullptr;
}

const Row* PagedRows::find(std::int64_t number) const {
    return number < 0 || number >= count_in_memory() ? nullptr : &rows_[static_cast<std::size_t>(number)];
}

std::optional<StoreFailure> PagedRows::read_page() {
    const std::int64_t before = count_in_memory();
    const std::int64_t page = std::max(kFirstPage, before);
    Statement statement(*connection_, select_text(*source_, wanted_));
    bind_values(statement, wanted_);
    statement.bind(page);
    statement.bind(before);
    auto step = statement.step();
    for (; step == Statement::Step::Row; step = statement.step()) {
        Row row{.rowid = statement.whole(0), .values = {}};
        row.values.reserve(source_->fields.size());
        for (const Field& field : source_->fields) {
            row.values.push_back(statement.value(static_cast<int>(row.values.size()) + 1, field.type));
        }
        rows_.push_back(std::move(row));
    }
    if (step == Statement::Step::Failed) {
        rows_.resize(static_cast<std::size_t>(before));  // a page comes whole or not at all
        return statement.failure();
    }
    complete_ = count_in_memory() < before + page;
    return std::nullopt;
}

Result<std::int64_t> PagedRows::count_of_others_up_to(std::int64_t number, const Wanted& other) const {
    std::int64_t others = 0;
    if (number < 0) return others;
    Statement statement(*connection_, comparison_text(*source_, wanted_, other));
    bind_values(statement, wanted_);
    bind_values(statement, other);
    auto step = statement.step();
    for (; step == Statement::Step::Row; step = statement.step()) {
        others += statement.whole(1);
        if (statement.whole(0) != 0 && number-- == 0) break;
    }
    if (step == Statement::Step::Failed) return statement.failure();
    return others;
}

}  // namespace marrowfen
