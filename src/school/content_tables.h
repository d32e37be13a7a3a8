#pragma once

#include <array>
#include <map>
#include <string>
#include <vector>

#include "platform/content_keeper.h"
#include "school/faults.h"
#include "school/tab_table.h"

/// The tables that children read, and what fits into them: for the tool that builds the store and for the teacher who
/// writes a set of their own.
namespace marrowfen {

/// The rows of one table of the store, each with a value for every field.
struct ContentTable {
    std::string name;
    std::vector<Values> rows;
};

inline const std::vector<std::string> kWordColumns{"id", "word", "end"};
inline const std::vector<std::string> kSentenceColumns{"sen_id", "Sen", "Verb", "noun", "adjective"};

/// A table with the columns of words, whatever they are called in it. Groups 1 to `groups` must be there.
[[nodiscard]] ContentTable read_words(const TabTable& table, const std::string& table_name, int groups, Faults& faults);
/// A table with the columns of sentences.
[[nodiscard]] ContentTable read_sentences(const TabTable& table, const std::string& table_name, Faults& faults);

/// What tells the games of the list apart. A game keeps its id, whatever it is called and wherever it stands.
class GameNames {
public:
    struct Columns {
        std::size_t id, number, name;
    };
    struct Named {
        int id = 0;  ///< 0: a fault
        int number = 0;
        std::string name;
    };

    explicit GameNames(Columns columns) : columns_(columns) {}
    [[nodiscard]] Named read(const RowReader& row);
    /// After the last row: whether all games are there.
    void finish(const TabTable& table, Faults& faults) const;

private:
    Columns columns_;
    std::map<std::string, int> ids_, numbers_, names_;
};

}  // namespace marrowfen
