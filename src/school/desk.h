#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/register.h"
#include "school/book.h"

namespace marrowfen {

enum class Results : std::uint8_t { Stay, GoToo };

/// What a teacher does with pupils and results. Each step happens whole or not at all, and can be taken back, the last
/// one first, for as long as the desk stands. A failure is the rest of a sentence, as the store's are.
class Desk {
public:
    Desk(Book& book, Register& keeper) : book_(book), register_(keeper) {}

    /// Names as they were typed. One that can't be taken makes all of it fail.
    [[nodiscard]] std::optional<StoreFailure> add(const std::vector<std::string>& names, const Progress& progress);
    [[nodiscard]] std::optional<StoreFailure> rename(std::int64_t pupil, const std::string& name);
    [[nodiscard]] std::optional<StoreFailure> remove(const std::vector<std::int64_t>& pupils, Results results,
                                                     const Progress& progress);
    [[nodiscard]] std::optional<StoreFailure> clear(const ResultFilter& filter, const Progress& progress);

    /// What would be taken back next, as "Undo " goes on: "adding Ann". Nothing: there is nothing.
    [[nodiscard]] std::optional<std::string> next_undo() const;
    /// Pupils who were added and have played since stay, and the answer says so. On failure the step can be taken back
    /// once more.
    [[nodiscard]] Result<std::string> undo(const Progress& progress);

private:
    struct Step {
        std::string name;
        Change reverse;
    };
    [[nodiscard]] std::optional<StoreFailure> take(std::string name, const Change& change, const Progress& progress);

    Book& book_;
    Register& register_;
    std::vector<Step> steps_;
};

/// "Ann", or "3 pupils".
[[nodiscard]] std::string named_or_counted(const Book& book, const std::vector<std::int64_t>& pupils);
[[nodiscard]] std::string counted(std::int64_t count, const std::string& thing);  ///< "1 result", "2 results"

}  // namespace marrowfen
