#include "school/result_list.h"

#include <algorithm>
#include <limits>

#include "core/teams.h"

namespace marrowfen {

namespace {

constexpr auto kLast = std::numeric_limits<std::int64_t>::max();

/// What a result is sorted by, as a number: a million comparisons of names would take seconds.
class SortKey {
public:
    SortKey(const Book& book, ResultColumn column) : book_(book), column_(column) {
        constexpr std::size_t kGames = 256;
        for (std::size_t i = 0; i < book.games().size(); ++i) {
            const auto id = static_cast<std::size_t>(book.games()[i].id);
            if (id < kGames) game_ranks_.resize(std::max(game_ranks_.size(), id + 1), kLast);
            if (id < kGames) game_ranks_[id] = static_cast<std::int64_t>(i);
        }
    }

    [[nodiscard]] std::int64_t of(const Played& played) const {
        constexpr std::int64_t kSecondsInDay = 86'400;
        switch (column_) {
            case ResultColumn::Pupil:
                if (const auto place = book_.place_of(played.pupil)) return static_cast<std::int64_t>(*place);
                return kLast - std::numeric_limits<std::int16_t>::max() + played.pupil;
            case ResultColumn::Game: {
                const auto id = static_cast<std::size_t>(played.game);
                return id < game_ranks_.size() ? game_ranks_[id] : kLast;
            }
            case ResultColumn::Team:
                return played.time_limit;
            case ResultColumn::Points:
                return played.points;
            case ResultColumn::Taken:
                return played.taken;
            case ResultColumn::When:
                return played.day * kSecondsInDay + played.clock;
        }
        return 0;
    }

private:
    const Book& book_;
    ResultColumn column_;
    std::vector<std::int64_t> game_ranks_;
};

}  // namespace

ResultPlaces results_that_fit(const Book& book, const ResultFilter& filter) {
    auto pupils = filter.pupils;
    std::ranges::sort(pupils);
    const auto fits = [&, from = filter.from, to = filter.to](const Played& played) {
        if (!pupils.empty() && !std::ranges::binary_search(pupils, std::int64_t{played.pupil})) return false;
        if (filter.game && *filter.game != played.game) return false;
        if (filter.time_limit && *filter.time_limit != played.time_limit) return false;
        if (from.empty() && to.empty()) return true;
        const std::string date = date_text(played.day);
        return !date.empty() && (from.empty() || date >= from) && (to.empty() || date <= to);
    };
    ResultPlaces places;
    const auto& results = book.results();
    for (std::uint32_t i = 0; i < results.size(); ++i) {
        if (fits(results[i])) places.push_back(i);
    }
    return places;
}

void sort_results(const Book& book, ResultPlaces& places, ResultColumn column, Order order) {
    struct Keyed {
        std::int64_t key;
        std::uint32_t place;
    };
    const SortKey key(book, column);
    std::vector<Keyed> keyed;
    keyed.reserve(places.size());
    for (const auto place : places) keyed.push_back({key.of(book.results()[place]), place});
    if (order == Order::Ascending) {
        std::ranges::stable_sort(keyed, {}, &Keyed::key);
    } else {
        std::ranges::stable_sort(keyed, std::greater{}, &Keyed::key);
    }
    std::ranges::transform(keyed, places.begin(), &Keyed::place);
}

std::string team_of(const Played& played) { return std::string(team_name(played.time_limit)); }

}  // namespace marrowfen
