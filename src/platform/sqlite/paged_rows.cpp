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
    : connection_(std::move(connection)), source_(&source), wanted_(std::move(wanted)), complete_(!wanted_) {
    if (source.fields.empty()) {
        failure_ = {"there is no table or list of that name in it"};
        complete_ = true;
    }
    read_up_to(0);
}

void PagedRows::read_up_to(std::int64_t number) {
    while (!complete_ && number >= count_in_memory()) read_page();
}

const Row* PagedRows::find(std::int64_t number) const {
    return number < 0 || number >= count_in_memory() ? nullptr : &rows_[static_cast<std::size_t>(number)];
}

void PagedRows::read_page() {
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
    complete_ = count_in_memory() < before + page;
    if (step != Statement::Step::Failed) return;
    failure_ = statement.failure();
    complete_ = true;
}

std::int64_t PagedRows::count_of_others_up_to(std::int64_t number, const Wanted& other) {
    if (number < 0 || failure_) return 0;
    Statement statement(*connection_, comparison_text(*source_, wanted_, other));
    bind_values(statement, wanted_);
    bind_values(statement, other);
    std::int64_t others = 0;
    auto step = statement.step();
    for (; step == Statement::Step::Row; step = statement.step()) {
        others += statement.whole(1);
        if (statement.whole(0) != 0 && number-- == 0) break;
    }
    if (step == Statement::Step::Failed) failure_ = statement.failure();
    return others;
}

}  // namespace marrowfen
