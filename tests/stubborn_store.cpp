#include "stubborn_store.h"

#include <utility>

namespace marrowfen {

namespace {

using Question = StubbornEngine::Question;

// For the present port
class StubbornRows final : public RowSet {
public:
    StubbornRows(std::unique_ptr<RowSet> rows, StubbornEngine& engine) : rows_(std::move(rows)), engine_(engine) { ask(); }
    [[nodiscard]] std::optional<StoreFailure> failure() const override { return failure_ ? failure_ : rows_->failure(); }
    [[nodiscard]] bool at_end() const override { return failure_ || rows_->at_end(); }
    [[nodiscard]] std::int64_t row_count() const override { return failure_ ? 0 : rows_->row_count(); }
    void move_first() override { ask(), rows_->move_first(); }
    void move_forward(std::int64_t rows) override { ask(), rows_->move_forward(rows); }
    void find_first(std::string_view criterion) override { ask(), rows_->find_first(criterion); }
    void find_next(std::string_view criterion) override { ask(), rows_->find_next(criterion); }
    [[nodiscard]] bool no_match() const override { return failure_ || rows_->no_match(); }
    [[nodiscard]] Value field(std::string_view name) const override { return rows_->field(name); }
    void add_row() override { rows_->add_row(); }
    void set_field(std::string_view name, Value value) override { rows_->set_field(name, std::move(value)); }
    [[nodiscard]] std::optional<StoreFailure> update() override {
        if (auto refused = engine_.refuses(Question::Write)) return refused;
        return rows_->update();
    }
    [[nodiscard]] std::optional<StoreFailure> delete_row() override {
        if (auto refused = engine_.refuses(Question::Write)) return refused;
        return rows_->delete_row();
    }

private:
    void ask() { failure_ = engine_.refuses(Question::Read); }
    std::unique_ptr<RowSet> rows_;
    StubbornEngine& engine_;
    std::optional<StoreFailure> failure_;
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
    if (question == Question::Write) return refused || refuses_writes ? std::optional(StoreFailure{"the disk is full"}) : std::nullopt;
    return refused || refuses_reads ? std::optional(StoreFailure{"the drive does not answer"}) : std::nullopt;
}

OpenedStore StubbornEngine::open(std::string_view path) {
    ++opened;
    if (auto refused = refuses(Question::Read)) return {nullptr, *refused};
    OpenedStore opened_store = engine_.open(path);
    if (opened_store.store == nullptr) return opened_store;
    return {std::make_unique<StubbornStore>(std::move(opened_store.store), *this), {}};
}

}  // namespace marrowfen
