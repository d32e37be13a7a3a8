#include "core/game_table.h"
#include "platform/text/folding.h"
#include "platform/text/letters.h"
#include "school/content_tables.h"

namespace marrowfen {

GameNames::Named GameNames::read(const RowReader& row) {
    constexpr int kHighestNumber = 99;
    constexpr std::size_t kLongestName = 34;  // the list has no room for more
    const auto id = row.whole(columns_.id, 1, static_cast<int>(listed_games().size()));
    const auto number = row.whole(columns_.number, 1, kHighestNumber);
    std::string name = row.needed(columns_.name);
    if (id) row.only_once(columns_.id, std::to_string(*id), ids_);
    if (number) row.only_once(columns_.number, std::to_string(*number), numbers_);
    row.only_once(columns_.name, folded(name), names_);
    if (const auto length = length_in_letters(name); length > kLongestName) {
        row.fault(columns_.name, row.name(columns_.name) + " has " + std::to_string(length) + " letters, and " +
                                     std::to_string(kLongestName) + " fit");
    }
    return {id.value_or(0), number.value_or(0), std::move(name)};
}

void GameNames::finish(const TabTable& table, Faults& faults) const {
    if (!table.has_its_columns()) return;
    for (const Game& game : listed_games()) {
        const std::string id = std::to_string(game.id);
        if (ids_.contains(id)) continue;
        faults.add(table.file(), table.head_line(),
                   "there is no game with the " + table.column(columns_.id) + " " + id);
    }
}

}  // namespace marrowfen
