#include "kept_sets.h"

#include <algorithm>
#include <map>
#include <set>

#include "platform/sqlite/own_sets.h"
#include "platform/text/folding.h"

namespace marrowfen {

namespace {

enum GameField : std::uint8_t { kId, kNumber, kName };

std::int64_t whole(const Value& value) {
    const auto* number = std::get_if<std::int64_t>(&value);
    return number ? *number : 0;
}

void keep_names(std::vector<Values>& games, const std::vector<Values>& before) {
    std::map<std::int64_t, const Values*> known;
    std::set<std::int64_t> numbers;
    std::set<std::string> names;
    for (const Values& game : before) {
        known[whole(game[kId])] = &game;
        numbers.insert(std::abs(whole(game[kNumber])));
        names.insert(folded(as_text(game[kName])));
    }
    for (Values& game : games) {
        if (const auto kept = known.find(whole(game[kId])); kept != known.end()) {
            game[kNumber] = (*kept->second)[kNumber];
            game[kName] = (*kept->second)[kName];
            continue;
        }
        std::int64_t number = whole(game[kNumber]);
        for (std::int64_t free = 1; numbers.contains(number); ++free) number = free;
        std::string name = as_text(game[kName]);
        while (names.contains(folded(name))) name += "+";
        numbers.insert(number);
        names.insert(folded(name));
        game[kNumber] = number;
        game[kName] = name;
    }
}

}  // namespace

Result<Content> with_kept_sets(Connection& connection, const Content& content) {
    const auto own = own_sets(connection);
    if (const auto* failure = own.failure()) return *failure;
    Content kept = content;
    for (ContentTable& table : kept.tables) {
        if (std::ranges::count(own.value(), table.name) == 0) continue;
        auto rows = rows_in(connection, *find_source(table.name));
        if (const auto* failure = rows.failure()) {
            return StoreFailure{"the set " + table.name + " that a teacher made can't be kept: " + failure->reason};
        }
        if (table.name == "Templates") {
            keep_names(table.rows, rows.value());
        } else {
            table.rows = std::move(rows).value();
        }
    }
    return kept;
}

}  // namespace marrowfen
