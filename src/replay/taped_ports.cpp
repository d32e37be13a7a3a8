#include "replay/taped_ports.h"

#include <array>
#include <charconv>
#include <utility>

#include "replay/words.h"

namespace marrowfen {

namespace {

const StoreFailure kNoAnswer{"the recording does not answer"};

// What can fail is `ok`, or `!` and the reason, with the number of a trouble that has a name.
std::string refused(const StoreFailure& failure) {
    const std::string reason = "!" + in_quotes(failure.reason);
    return failure.trouble == Trouble::Other ? reason
                                             : reason + " " + std::to_string(static_cast<int>(failure.trouble));
}
std::string outcome(const std::optional<StoreFailure>& failure) { return failure ? refused(*failure) : "ok"; }

std::optional<StoreFailure> to_failure(const std::optional<std::string>& word) {
    if (!word) return kNoAnswer;
    if (!word->starts_with('!')) return std::nullopt;
    Words words(std::string_view(*word).substr(1));
    StoreFailure failure{words.take_quoted().value_or(*word)};
    failure.trouble = static_cast<Trouble>(words.take_number().value_or(0));
    return failure;
}

std::string outcome(const Result<bool>& there) {
    if (const StoreFailure* failure = there.failure()) return refused(*failure);
    return there.value() ? "1" : "0";
}

class TapedRows final : public RowSet {
public:
    TapedRows(Tape& tape, std::unique_ptr<RowSet> world, std::size_t number)
        : tape_(tape), world_(std::move(world)), name_("rows " + std::to_string(number)) {}

    [[nodiscard]] Result<bool> move_first() override {
        return moved("first", [this] { return world_->move_first(); });
    }
    [[nodiscard]] Result<bool> move_forward(std::int64_t rows) override {
        return moved("forward " + std::to_string(rows), [this, rows] { return world_->move_forward(rows); });
    }
    [[nodiscard]] Result<bool> find_first(std::string_view criterion) override {
        return moved("find " + in_quotes(criterion), [&] { return world_->find_first(criterion); });
    }
    [[nodiscard]] Result<bool> find_next(std::string_view criterion) override {
        return moved("next " + in_quotes(criterion), [&] { return world_->find_next(criterion); });
    }
    [[nodiscard]] Value field(std::string_view name) const override {
        const auto word =
            tape_.ask(name_ + " field " + std::string(name), [&] { return to_word(world_->field(name)); });
        return word ? to_value(*word).value_or(Value{}) : Value{};
    }
    [[nodiscard]] std::optional<StoreFailure> add_row() override {
        return written("add", [this] { return world_->add_row(); });
    }
    void set_field(std::string_view name, Value value) override {
        tape_.note(name_ + " set " + std::string(name) + " " + to_word(value));
        if (world_) world_->set_field(name, std::move(value));
    }
    [[nodiscard]] std::optional<StoreFailure> update() override {
        return written("update", [this] { return world_->update(); });
    }
    [[nodiscard]] std::optional<StoreFailure> delete_row() override {
        return written("delete", [this] { return world_->delete_row(); });
    }

private:
    [[nodiscard]] Result<bool> moved(const std::string& how, const std::function<Result<bool>()>& world) {
        const auto word = tape_.ask(name_ + " " + how, [&] { return outcome(world()); });
        if (auto failure = to_failure(word)) return *failure;
        return word == "1";
    }
    [[nodiscard]] std::optional<StoreFailure> written(const std::string& how,
                                                      const std::function<std::optional<StoreFailure>()>& world) {
        return to_failure(tape_.ask(name_ + " " + how, [&] { return outcome(world()); }));
    }

    Tape& tape_;
    std::unique_ptr<RowSet> world_;
    const std::string name_;
};

class TapedStore final : public Store {
public:
    TapedStore(Tape& tape, std::unique_ptr<Store> world, std::size_t& row_sets)
        : tape_(tape), world_(std::move(world)), row_sets_(row_sets) {}
    [[nodiscard]] std::unique_ptr<RowSet> open(std::string_view table_or_query) override {
        const std::size_t number = ++row_sets_;
        tape_.note("rows " + std::to_string(number) + " of " + std::string(table_or_query));
        return std::make_unique<TapedRows>(tape_, world_ ? world_->open(table_or_query) : nullptr, number);
    }

private:
    Tape& tape_;
    std::unique_ptr<Store> world_;
    std::size_t& row_sets_;
};

std::optional<float> to_float(const std::string& word) {
    float number = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    return error == std::errc{} && number >= 0 && number < 1 ? std::optional(number) : std::nullopt;
}

}  // namespace

// The path is where this computer has the program, which is no matter of the run.
Result<std::unique_ptr<Store>> TapedStoreEngine::open(std::string_view path) {
    std::unique_ptr<Store> opened;
    const auto word = tape_.ask("store", [&] {
        auto store = world_->open(path);
        if (const StoreFailure* failure = store.failure()) return refused(*failure);
        opened = std::move(store).value();
        return std::string("ok");
    });
    if (auto failure = to_failure(word)) return *failure;
    return std::unique_ptr<Store>(std::make_unique<TapedStore>(tape_, std::move(opened), row_sets_));
}

void TapedSound::start(std::string_view path) {
    constexpr std::string_view kFolder = "\\Sound\\";
    const auto folder = path.find(kFolder);
    tape_.note("cue " + std::string(folder == std::string_view::npos ? path : path.substr(folder + kFolder.size())));
    if (world_ != nullptr) world_->start(path);
}

std::chrono::year_month_day TapedClock::today() const {
    const auto word = tape_.ask("today", [this] { return to_word(Value{world_->today()}); });
    const Value value = word ? to_value(*word).value_or(Value{}) : Value{};
    const auto* date = std::get_if<std::chrono::year_month_day>(&value);
    return date == nullptr ? std::chrono::year_month_day{} : *date;
}

std::chrono::seconds TapedClock::time_of_day() const {
    const auto word = tape_.ask("time", [this] { return to_word(Value{world_->time_of_day()}); });
    const Value value = word ? to_value(*word).value_or(Value{}) : Value{};
    const auto* time = std::get_if<std::chrono::seconds>(&value);
    return time == nullptr ? std::chrono::seconds{} : *time;
}

std::string TapedClock::short_date(std::chrono::year_month_day date) const {
    const auto word = tape_.ask("short " + as_text(Value{date}), [&] { return in_quotes(world_->short_date(date)); });
    return word ? Words(*word).take_quoted().value_or("") : std::string{};
}

void TapedRandom::seed_from_clock() {
    tape_.note("seed");
    if (world_ != nullptr) world_->seed_from_clock();
}

float TapedRandom::next() {
    const auto word = tape_.ask("draw", [this] {
        std::array<char, 32> text{};  // enough for any float
        const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), world_->next());
        return std::string(text.data(), end);
    });
    const auto drawn = word ? to_float(*word) : std::nullopt;
    return drawn ? *drawn : static_cast<float>(lost_() % 1000) / 1000;
}

}  // namespace marrowfen
