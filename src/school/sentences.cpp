#include <algorithm>
#include <array>
#include <map>

#include "core/game_table.h"
#include "platform/text/letters.h"
#include "school/content_tables.h"
#include "school/tab_table.h"

namespace marrowfen {

namespace {

enum Column : std::uint8_t { kId, kSentence, kVerb, kNoun, kAdjective };
constexpr std::array kClasses{kVerb, kNoun, kAdjective};

constexpr std::size_t kLongestSentence = 45;
constexpr std::size_t kLongestWord = 12;
constexpr int kHighestId = 32767;

bool in_a_word(char c) {
    // Letters beyond a to z are several bytes, each of them above the plain ones.
    constexpr unsigned char kPlain = 0x80;
    return all_letters({&c, 1}) || c == '\'' || c == '-' || static_cast<unsigned char>(c) >= kPlain;
}

std::ptrdiff_t times_in(std::string_view sentence, std::string_view word) {
    std::ptrdiff_t times = 0;
    while (!sentence.empty()) {
        const auto start = std::ranges::find_if(sentence, in_a_word);
        const auto end = std::find_if_not(start, sentence.end(), in_a_word);
        if (std::string_view(start, end) == word) ++times;
        sentence = {end, sentence.end()};
    }
    return times;
}

/// The pupil spells the word with the keys, as it stands in the sentence.
void check_answer(const RowReader& row, Column column, const std::string& sentence, const std::string& word) {
    if (word.empty() || sentence.empty()) return;
    const std::string what = row.name(column) + " '" + word + "' ";
    if (!all_small_letters(word)) {
        row.fault(column, what + "should have the letters a to z alone");
    } else if (word.size() > kLongestWord) {
        row.fault(column, what + "has " + std::to_string(word.size()) + " letters, and " +
                              std::to_string(kLongestWord) + " fit");
    } else if (const auto times = times_in(sentence, word); times != 1) {
        row.fault(column,
                  what + (times == 0 ? "is not a word of the sentence" : "stands in the sentence more than once"));
    }
}

}  // namespace

ContentTable read_sentences(const TabTable& table, const std::string& table_name, Faults& faults) {
    ContentTable content{.name = table_name, .rows = {}};
    std::map<std::string, int> ids;
    std::map<std::string, int> sentences;
    for (const TabTable::Row& line : table.rows()) {
        const RowReader row(table, line, faults);
        const auto id = row.whole(kId, 1, kHighestId);
        const std::string sentence = row.needed(kSentence);
        if (id) row.only_once(kId, std::to_string(*id), ids);
        row.only_once(kSentence, sentence, sentences);
        if (const auto length = length_in_letters(sentence); length > kLongestSentence) {
            row.fault(kSentence, row.name(kSentence) + " has " + std::to_string(length) + " characters, and " +
                                     std::to_string(kLongestSentence) + " fit");
        }
        Values values{std::int64_t{id.value_or(0)}, sentence};
        std::map<std::string, int> answers;
        for (const Column column : kClasses) {
            const std::string word = row.needed(column);
            check_answer(row, column, sentence, word);
            row.only_once(column, word, answers);
            values.emplace_back(word);
        }
        content.rows.push_back(std::move(values));
    }
    if (table.has_its_columns() && content.rows.size() < kSentencesInAGame) {
        faults.add(table.file(), table.head_line(),
                   "there are " + std::to_string(content.rows.size()) + " sentences, and a game needs " +
                       std::to_string(kSentencesInAGame));
    }
    return content;
}

}  // namespace marrowfen
