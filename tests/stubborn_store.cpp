#include "stubborn_store.h"

#include <functional>
#include <utility>

namespace marrowfen {

namespace {

using Question = StubbornEngine::Question;

// Passes on every question that is not refused.
class StubbornRows final : public RowSet {
public:
    StubbornRows(std::unique_ptr<RowSet> rows, StubbornEngine& engine) : rows_(std::move(rows)), engine_(engine) {}
    [[nodiscard]] Result<bool> move_first() override {
        return ask([&] { return rows_->move_first(); });
    }
    [[nodiscard]] Result<bool> move_forward(std::int64_t rows) override {
        return ask([&] { return rows_->move_forward(rows); });
    }
    [[nodiscard]] Result<bool> find_first(std::string_view criterion) override {
        return ask([&] { return rows_->find_first(criterion); });
    }
    [[nodiscard]] Result<bool> find_next(std::string_view criterion) override {
        return ask([&] { return rows_->find_next(criterion); });
    }
    [[nodiscard]] Value field(std::string_view name) const override { return rows_->field(name); }
    [[nodiscard]] std::optional<StoreFailure> add_row() override {
        const auto refused = engine_.refuses(Question::Write);
        return refused ? refused : rows_->add_row();
    }
    void set_field(std::string_view name, Value value) override { rows_->set_field(name, std::move(value)); }
    [[nodiscard]] std::optional<StoreFailure> update() override {
        const auto refused = engine_.refuses(Question::Write);
        return refused ? refused : rows_->update();
    }
    [[nodiscard]] std::optional<StoreFailure> delete_row() override {
        const auto refused = engine_.refuses(Question::Write);
        return refused ? refused : rows_->delete_row();
    }

private:
    Result<bool> ask(const std::function<Result<bool>()>& question) {
        if (const auto refused = engine_.refuses(Question::Read)) return *refused;
        return question();
    }

    std::unique_ptr<RowSet> rows_;
    StubbornEngine& engine_;
};

class StubbornStore final : public Store {
public:
    StubbornStore(std::unique_ptr<Store> store, StubbornEngine& engine) : store_(std::move(store)), engine_(engine) {}
    [[nodiscard]] std::unique_ptr<RowSet> open(std::string_view source) override {
        return std::make_unique<StubbornRows>(store_->open(source), engine_);
    }

private:
    std::unique_ptr<Store> store_;
    StubbornEngine& engine_;
};

}  // namespace

std::optional<StoreFailure> StubbornEngine::refuses(Question question) {
    const std::size_t number = asked_++;
    const bool refused = number >= first_refused_ && number - first_refused_ < refused_;
    const bool writes = question == Question::Write;
    if (!refused && !(writes ? refuses_writes : refuses_reads)) return std::nullopt;
    return StoreFailure{writes ? "the disk is full" : "the drive does not answer"};
}

Result<std::unique_ptr<Store>> StubbornEngine::open(std::string_view path) {
    ++opened;
    if (const auto refused = refuses(Question::Read)) return *refused;
    auto store = engine_.open(path);
    if (store.failure()) return store;
    return std::unique_ptr<Store>(std::make_unique<StubbornStore>(std::move(store).value(), *this));
}

}  // namespace marrowfen
