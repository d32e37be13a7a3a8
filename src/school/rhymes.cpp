#include <map>
#include <set>

#include "core/game_table.h"
#include "platform/text/folding.h"
#include "school/content_tables.h"
#include "school/tab_table.h"

namespace marrowfen {

namespace {

enum Column : std::uint8_t { kGroup, kWord, kEnd };

struct Group {
    int first_line = 0;
    std::string end;
    std::vector<std::string> words;
};

/// A pupil gives one letter, which must make the word with the ending on show.
void check_word(const RowReader& row, const std::string& word, const std::string& end) {
    if (word.empty() || end.empty()) return;
    if (!all_small_letters(end))
        row.fault(kEnd, row.name(kEnd) + " '" + end + "' should have the letters a to z alone");
    if (word.size() != end.size() + 1 || !all_letters(word) || !word.ends_with(end)) {
        row.fault(kWord, row.name(kWord) + " '" + word + "' should be one letter and the " + row.name(kEnd) + " '" +
                             end + "'");
    }
}

/// A pupil who tries the letter of the word on show must not find it, and a letter that is tried is put as a capital
/// before the end: so every word begins with one in the store, however a teacher wrote it.
std::string with_capital(std::string word) {
    if (!word.empty() && word.front() >= 'a' && word.front() <= 'z') {
        word.front() = static_cast<char>(word.front() - 'a' + 'A');
    }
    return word;
}

void check_groups(const TabTable& table, int groups, const std::map<int, Group>& found,
                  const std::map<std::string, int>& words, Faults& faults) {
    for (int id = 1; id <= groups; ++id) {
        if (!found.contains(id))
            faults.add(table.file(), table.head_line(), "group " + std::to_string(id) + " is missing");
    }
    for (const auto& [id, group] : found) {
        if (group.words.size() < kFewestRhymes) {
            faults.add(table.file(), group.first_line,
                       "group " + std::to_string(id) + " has only " + std::to_string(group.words.size()) +
                           " words; it needs " + std::to_string(kFewestRhymes),
                       kGroup);
        }
    }
    // In the first task of a game the last letter on show counts as tried already, so no word may begin with it.
    if (const auto first = found.find(1); first != found.end() && !first->second.end.empty()) {
        const std::string& end = first->second.end;
        if (const auto lost = words.find(end.substr(end.size() - 1) + end); lost != words.end()) {
            faults.add(table.file(), lost->second,
                       "'" + lost->first +
                           "' can't be found in group 1, since its first letter ends all words there; "
                           "give the group another number",
                       kWord);
        }
    }
}

}  // namespace

ContentTable read_words(const TabTable& table, const std::string& table_name, int groups, Faults& faults) {
    ContentTable content{.name = table_name, .rows = {}};
    std::map<int, Group> found;
    std::map<std::string, int> words;
    for (const TabTable::Row& line : table.rows()) {
        const RowReader row(table, line, faults);
        const auto id = row.whole(kGroup, 1, groups);
        const std::string word = row.needed(kWord);
        const std::string end = row.needed(kEnd);
        check_word(row, word, end);
        row.only_once(kWord, folded(word), words);
        if (!id) continue;
        Group& group = found.try_emplace(*id, Group{line.line, end, {}}).first->second;
        if (end != group.end)
            row.fault(kEnd, row.name(kEnd) + " '" + end + "' differs from '" + group.end + "' of the same group");
        group.words.push_back(word);
        content.rows.push_back({std::int64_t{*id}, with_capital(word), end});
    }
    if (table.has_its_columns()) check_groups(table, groups, found, words, faults);
    return content;
}

}  // namespace marrowfen
