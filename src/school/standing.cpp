#include "school/standing.h"

#include <algorithm>

#include "core/teams.h"

namespace marrowfen {

namespace {

bool is_typing(const Played& played) { return played.time_limit == 0; }

/// The next longer time limit.
const Team* slower_team(std::int16_t time_limit) {
    const auto* team = std::ranges::find_if(kTeams, [&](const Team& each) { return each.time_limit > time_limit; });
    return team == kTeams.end() ? nullptr : team;
}

const Team* faster_team(std::int16_t time_limit) {
    const Team* faster = nullptr;
    for (const Team& team : kTeams) {
        if (team.time_limit < time_limit) faster = &team;
    }
    return faster;
}

std::string in_team(const Team* team) { return team ? " in the " + std::string(team->name) + " team" : ""; }

std::string help_for(const Book& book, const Standing& standing) {
    const Played& last = standing.latest.back();
    const std::string name = book.game_name(last.game);
    const std::string begin = "Stuck at " + name + ": ";
    if (const Team* slower = slower_team(last.time_limit); slower && !is_typing(last)) {
        return begin + "try it" + in_team(slower) + ".";
    }
    const auto& games = book.games();
    const auto here = std::ranges::find(games, last.game, &GameEntry::id);
    if (here != games.end() && here != games.begin()) return begin + "go back to " + std::prev(here)->title() + ".";
    return begin + "play it together once.";
}

}  // namespace

void Standing::count(const Played& played) {
    ++times;
    last_day = std::max(last_day, played.day);
    if (!is_typing(played) && (!best || is_better(played, *best))) best = played;
    InGame& game = games[played.game];
    if (game.times++ == 0 || is_better(played, game.best)) game.best = played;
    latest.push_back(played);
    if (latest.size() > kLatest) latest.erase(latest.begin());
}

std::vector<Standing> standings(const Book& book) {
    std::vector<Standing> all(book.pupils().size());
    for (const Played& played : book.results()) {
        if (const auto place = book.place_of(played.pupil)) all[*place].count(played);
    }
    return all;
}

bool is_better(const Played& one, const Played& other) {
    if (is_typing(one) && is_typing(other)) return one.points < other.points;
    return one.points != other.points ? one.points > other.points : one.time_limit < other.time_limit;
}

bool is_stuck(const Standing& standing) {
    if (standing.latest.size() < Standing::kLatest) return false;
    const Played& first = standing.latest.front();
    const Played& last = standing.latest.back();
    const bool same = std::ranges::all_of(standing.latest, [&](const Played& played) {
        return played.game == first.game && played.time_limit == first.time_limit;
    });
    return same && !is_better(last, first) &&
           std::ranges::none_of(standing.latest, [&](const Played& played) { return is_better(played, first); });
}

std::string advice(const Book& book, const Standing& standing) {
    const auto& games = book.games();
    const auto is_new = [&](const GameEntry& game) { return game.listed() && !standing.games.contains(game.id); };
    const auto next = std::ranges::find_if(games, is_new);
    const bool has_next = next != games.end();
    if (standing.times == 0) return has_next ? "Not played yet: begin with " + next->title() + "." : "Not played yet.";
    if (is_stuck(standing)) return help_for(book, standing);
    if (has_next) return "Next: " + next->title() + ".";
    const InGame* weakest = nullptr;
    for (const auto& [id, game] : standing.games) {
        if (is_typing(game.best) || !book.game(id) || !book.game(id)->listed()) continue;
        if (!weakest || is_better(weakest->best, game.best)) weakest = &game;
    }
    if (!weakest) return "All games are done.";
    constexpr std::int16_t kEasy = 50;  // points: half of the time was left
    const Team* faster = weakest->best.points >= kEasy ? faster_team(weakest->best.time_limit) : nullptr;
    return "All games are done; most is to be won in " + book.game(weakest->best.game)->title() + in_team(faster) + ".";
}

}  // namespace marrowfen
