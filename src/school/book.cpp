#include "school/book.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include "core/game_table.h"

namespace marrowfen {

namespace {

std::int16_t narrowed(std::int64_t number) {
    using Limits = std::numeric_limits<std::int16_t>;
    return static_cast<std::int16_t>(std::clamp<std::int64_t>(number, Limits::min(), Limits::max()));
}

/// The numbers of a text that are parted by a mark: "1:05" gives 1 and 5. Empty: it is no such text.
std::vector<int> numbers_in(std::string_view text, char mark) {
    std::vector<int> numbers;
    while (true) {
        const auto end = std::min(text.find(mark), text.size());
        int number = 0;
        const auto [stop, error] = std::from_chars(text.data(), text.data() + end, number);
        if (error != std::errc{} || stop != text.data() + end || number < 0) return {};
        numbers.push_back(number);
        if (end == text.size()) return numbers;
        text.remove_prefix(end + 1);
    }
}

constexpr int kSixty = 60;

/// "1:05" as seconds.
std::int32_t seconds_in(std::string_view text) {
    constexpr std::size_t kMostParts = 3;
    const auto parts = numbers_in(text, ':');
    if (parts.empty() || parts.size() > kMostParts) return Played::kUnknown;
    std::int64_t seconds = 0;
    for (const int part : parts) seconds = seconds * kSixty + part;
    return seconds > std::numeric_limits<std::int32_t>::max() ? Played::kUnknown : static_cast<std::int32_t>(seconds);
}

std::int32_t day_in(std::string_view text) {
    constexpr std::size_t kParts = 3;
    const auto parts = numbers_in(text, '-');
    if (parts.size() != kParts) return Played::kUnknown;
    const std::chrono::year_month_day date{std::chrono::year{parts[0]},
                                           std::chrono::month{static_cast<unsigned>(parts[1])},
                                           std::chrono::day{static_cast<unsigned>(parts[2])}};
    return date.ok() ? day_of(date) : Played::kUnknown;
}

Played small(const KeptResult& kept) {
    return {.row = kept.row,
            .day = day_in(kept.date),
            .clock = seconds_in(kept.time_played),
            .taken = seconds_in(kept.time_taken),
            .pupil = narrowed(kept.pupil),
            .game = narrowed(kept.game),
            .time_limit = narrowed(kept.time_limit),
            .points = narrowed(kept.points)};
}

std::string two_digits(int number) { return (number < 10 ? "0" : "") + std::to_string(number); }

}  // namespace

std::string GameEntry::title() const { return listed() ? std::to_string(number) + ". " + name : name; }

std::int32_t day_of(std::chrono::year_month_day date) {
    return static_cast<std::int32_t>(std::chrono::sys_days(date).time_since_epoch().count());
}

std::string date_text(std::int32_t day) {
    if (day == Played::kUnknown) return {};
    return as_text(std::chrono::year_month_day(std::chrono::sys_days(std::chrono::days(day))));
}

std::string clock_text(std::int32_t clock) {
    if (clock == Played::kUnknown) return {};
    return two_digits(clock / kSixty / kSixty) + ":" + two_digits(clock / kSixty % kSixty);
}

std::string minutes_text(std::int32_t taken) {
    if (taken == Played::kUnknown) return {};
    return std::to_string(taken / kSixty) + ":" + two_digits(taken % kSixty);
}

std::string points_text(const Played& played) {
    const std::string unit = played.time_limit == 0 ? " second" : " point";
    return std::to_string(played.points) + unit + (played.points == 1 ? "" : "s");
}

Result<bool> Book::refresh(Reading reading, const Progress& progress) {
    auto pupils = register_.pupils();
    if (const auto* failure = pupils.failure()) return *failure;
    auto games = read_games();
    if (const auto* failure = games.failure()) return *failure;
    const auto count = register_.count_results();
    if (const auto* failure = count.failure()) return *failure;

    std::vector<Played> results;
    const auto known = static_cast<std::int64_t>(results_.size());
    bool is_different = reading == Reading::Everything || count.value() < known;
    if (!is_different && count.value() > known) {
        results = results_;
        if (const auto failure = read_results(results, count.value(), progress)) return *failure;
        // Fewer than were counted before: some were removed while others came.
        is_different = static_cast<std::int64_t>(results.size()) < count.value();
        if (!is_different) results_ = std::move(results);
        results.clear();
    }
    if (is_different) {
        if (const auto failure = read_results(results, count.value(), progress)) return *failure;
        results_ = std::move(results);
    }
    is_different = is_different || count.value() != known || pupils.value() != pupils_ || games.value() != games_;
    pupils_ = std::move(pupils).value();
    games_ = std::move(games).value();
    places_.clear();
    for (std::size_t i = 0; i < pupils_.size(); ++i) places_.emplace(pupils_[i].number, i);
    return is_different;
}

Result<std::vector<GameEntry>> Book::read_games() {
    std::vector<GameEntry> games;
    const auto rows = store_.open("Templates");
    auto row = rows->move_first();
    for (; row.value_or(false); row = rows->move_next()) {
        games.push_back({as_whole(rows->field("Template_ID")), as_whole(rows->field("GameNumber")),
                         as_text(rows->field("GameName"))});
    }
    if (const auto* failure = row.failure()) return *failure;
    std::ranges::sort(games, {}, [](const GameEntry& game) {
        return std::pair(!game.listed(), game.listed() ? game.number : -game.number);
    });
    return games;
}

std::optional<StoreFailure> Book::read_results(std::vector<Played>& results, std::int64_t count,
                                               const Progress& progress) {
    constexpr std::int64_t kPortion = 20'000;  // read in a few hundredths of a second, for which nobody can write
    results.reserve(static_cast<std::size_t>(count));
    while (true) {
        const auto portion = register_.results_after(results.empty() ? 0 : results.back().row, kPortion);
        if (const auto* failure = portion.failure()) return *failure;
        for (const KeptResult& kept : portion.value()) results.push_back(small(kept));
        if (std::ssize(portion.value()) < kPortion) return std::nullopt;
        if (progress && !progress(std::ssize(results), count)) return StoreFailure{kStopped};
    }
}

std::optional<std::size_t> Book::place_of(std::int64_t pupil) const {
    const auto found = places_.find(pupil);
    return found == places_.end() ? std::nullopt : std::optional(found->second);
}

std::string Book::name_of(std::int64_t pupil) const {
    const auto place = place_of(pupil);
    return place ? pupils_[*place].name : "a removed pupil (" + std::to_string(pupil) + ")";
}

const GameEntry* Book::game(std::int64_t id) const {
    const auto found = std::ranges::find(games_, id, &GameEntry::id);
    return found == games_.end() ? nullptr : &*found;
}

std::string Book::game_name(std::int64_t id) const {
    if (const GameEntry* entry = game(id)) return entry->name;
    return id == kOldTypingTest ? "Typing Test" : "game " + std::to_string(id);
}

}  // namespace marrowfen
