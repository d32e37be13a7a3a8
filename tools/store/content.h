#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "school/content_tables.h"
#include "school/faults.h"

namespace marrowfen {

/// The names of things, for the keys in their order.
using ThingNames = std::vector<std::string>;

/// What a game asks of the picture folders.
struct GameLook {
    std::string tiles;  ///< the set of the tiles' pictures
    std::string faces;  ///< the set of the keys' faces; may be empty where the keys are blank
    bool shows_faces = false;
    bool splits_hands = false;
    bool shows_things = false;  ///< on the keys, where the hands are not split
    ThingNames things;          ///< those on the keys; empty without any
};

struct Content {
    std::vector<ContentTable> tables;
    std::vector<GameLook> looks;
    ThingNames things;  ///< those of the set of pictures; empty where no game asks for it
};

/// Reads and checks the tables of the folder. With faults the content is incomplete and not to be used. Every thing
/// must have its drawing in the folder of drawings; with an empty path that is not asked.
[[nodiscard]] Content read_content(const std::filesystem::path& folder, const std::filesystem::path& drawings,
                                   Faults& faults);

/// The table of the games, their looks, and the things that they show.
void read_games(const std::filesystem::path& folder, const std::filesystem::path& drawings, Content& content,
                Faults& faults);

}  // namespace marrowfen
