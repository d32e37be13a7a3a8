#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/content_keeper.h"
#include "school/content_tables.h"
#include "school/export.h"

namespace marrowfen {

/// One of the tables that a teacher may write: rhymes or sentences of a key stage, or the list of games.
struct SetKind {
    enum class Form : std::uint8_t { Rhymes, Sentences, Games };

    Form form = Form::Rhymes;
    std::string title;                 ///< "Rhymes, Key Stage 1"
    std::string word;                  ///< on the command line: "rhymes1"
    std::string table;                 ///< in the store
    std::string file;                  ///< that came with the program: "words-keystage1.tsv"
    std::vector<std::string> columns;  ///< as such files call them
    std::vector<std::string> titles;   ///< of the columns, as a teacher calls them
    int groups = 0;                    ///< of rhymes
};
[[nodiscard]] const std::vector<SetKind>& set_kinds();

/// A set as text, a cell for each of the kind's columns.
using SetRow = std::vector<std::string>;
using SetRows = std::vector<SetRow>;

/// What stands against a set, in words for a teacher. Lines count from 1; line 0 is the set as a whole.
[[nodiscard]] std::vector<Faults::Place> faults_in(const SetKind& kind, const SetRows& rows);

/// The sets of a school. Failures are the rest of a sentence.
class WordSets {
public:
    /// `came_with`: the folder of the tables that came with the program.
    WordSets(ContentKeeper& keeper, std::filesystem::path came_with)
        : keeper_(keeper), came_with_(std::move(came_with)) {}

    struct Set {
        SetRows rows;
        Maker maker = Maker::Marrowfen;
    };
    [[nodiscard]] Result<Set> read(const SetKind& kind);
    /// Only what is whole is kept. A set with faults is refused with the first of them.
    [[nodiscard]] std::optional<StoreFailure> keep(const SetKind& kind, const SetRows& rows);
    /// Puts what came with the program in the place of the teacher's set.
    [[nodiscard]] std::optional<StoreFailure> go_back(const SetKind& kind);

private:
    [[nodiscard]] std::optional<StoreFailure> keep_as(const SetKind& kind, const SetRows& rows, Maker maker);

    ContentKeeper& keeper_;
    std::filesystem::path came_with_;
};

/// A set in a file, as teachers share it. With faults only what could be read is there.
[[nodiscard]] SetRows read_set(const SetKind& kind, const std::filesystem::path& file, Faults& faults);
[[nodiscard]] FileFailure write_set(const SetKind& kind, const SetRows& rows, const std::filesystem::path& file);

}  // namespace marrowfen
