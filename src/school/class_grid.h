#pragma once

#include <string>
#include <vector>

#include "school/standing.h"

namespace marrowfen {

/// Pupils by games, for a look at a whole class. What a cell tells it tells by a sign, not by a colour alone.
class ClassGrid {
public:
    enum class Level : std::uint8_t { Never, Begun, Halfway, Well };
    struct Cell {
        Level level = Level::Never;
        std::string text;  ///< the level's sign and the best points, or seconds in a typing test
    };

    explicit ClassGrid(const Book& book);

    [[nodiscard]] const std::vector<const GameEntry*>& games() const { return games_; }  ///< those listed, in order
    [[nodiscard]] Cell cell(std::size_t pupil, std::size_t game) const;
    [[nodiscard]] static std::string legend();

private:
    std::vector<const GameEntry*> games_;
    std::vector<Standing> standings_;
};

}  // namespace marrowfen
