#include "content.h"

#include <algorithm>
#include <cctype>

#include "core/game_table.h"

namespace marrowfen {

namespace {

/// Words_Keystage1 is read from words-keystage1.tsv.
std::string file_for(std::string_view table) {
    std::string name(table);
    std::ranges::transform(name, name.begin(),
                           [](unsigned char c) { return c == '_' ? '-' : static_cast<char>(std::tolower(c)); });
    return name + ".tsv";
}

}  // namespace

Content read_content(const std::filesystem::path& folder, const std::filesystem::path& drawings, Faults& faults) {
    Content content;
    read_games(folder, drawings, content, faults);
    for (const Game& game : listed_games()) {
        const std::string table(game.content_table);
        if (table.empty() || std::ranges::count(content.tables, table, &ContentTable::name) > 0) continue;
        const auto file = folder / file_for(table);
        const bool rhymes = game.rhyme_groups > 0;
        const TabTable read(file, rhymes ? kWordColumns : kSentenceColumns, faults);
        content.tables.push_back(rhymes ? read_words(read, table, game.rhyme_groups, faults)
                                        : read_sentences(read, table, faults));
    }
    return content;
}

}  // namespace marrowfen
