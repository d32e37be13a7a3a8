#include "platform/sqlite/new_row.h"

#include <string>

#include "platform/letter_case.h"
#include "platform/sqlite/query_text.h"
#include "platform/sqlite/statement.h"
#include "platform/text/folding.h"

namespace marrowfen {

std::optional<StoreFailure> insert_row(Connection& connection, const Source& source, const std::vector<Value>& values) {
    Statement statement(connection, insert_text(source));
    for (const Value& value : values) statement.bind(value);
    for (std::size_t i = 0; i < source.fields.size(); ++i) {
        if (source.fields[i].type != FieldType::SearchedText) continue;
        const bool is_null = std::holds_alternative<std::monostate>(values[i]);
        statement.bind(is_null ? Value{} : Value{folded(as_text(values[i]))});
    }
    if (statement.step() == Statement::Step::Failed) return statement.failure();
    return std::nullopt;
}

NewRow::NewRow(std::shared_ptr<Connection> connection, const Source& source)
    : connection_(std::move(connection)), source_(&source), values_(source.fields.size()) {}

std::optional<StoreFailure> NewRow::begin() {
    if (source_->kind != SourceKind::Lasting) return StoreFailure{"no rows can be added to " + source_->name};
    if (auto refusal = connection_->write_refusal()) return refusal;
    return source_->numbered.empty() ? std::nullopt : reserve_number();
}

std::optional<StoreFailure> NewRow::reserve_number() {
    transaction_.emplace(*connection_);
    if (auto failure = transaction_->begin()) return failure;
    // The highest number that was ever given out, also when its row is gone, is kept beside the table.
    Statement next(*connection_, "SELECT 1 + max(ifnull((SELECT max(rowid) FROM " + in_brackets(source_->name) +
                                     "), 0), ifnull((SELECT seq FROM sqlite_sequence WHERE name = ?), 0))");
    next.bind(source_->name);
    if (next.step() != Statement::Step::Row) return next.failure();
    if (const auto index = index_of(source_->numbered)) values_[*index] = next.whole(0);
    return std::nullopt;
}

std::optional<std::size_t> NewRow::index_of(std::string_view name) const {
    const Field* field = find_field(*source_, name);
    if (field == nullptr) return std::nullopt;
    return static_cast<std::size_t>(field - source_->fields.data());
}

Value NewRow::field(std::string_view name) const {
    const auto index = index_of(name);
    return index ? values_[*index] : Value{};
}

void NewRow::set(std::string_view name, Value value) {
    const auto index = index_of(name);
    if (index && !same_name(name, source_->numbered)) {
        values_[*index] = std::move(value);
    } else if (!failure_) {
        failure_ = {"the field " + std::string(name) + " of " + source_->name + " can't be set"};
    }
}

std::optional<StoreFailure> NewRow::store() {
    if (!failure_) failure_ = insert_row(*connection_, *source_, values_);
    if (!failure_ && transaction_) failure_ = transaction_->commit();
    transaction_.reset();  // takes back what could not be committed
    return failure_;
}

}  // namespace marrowfen
