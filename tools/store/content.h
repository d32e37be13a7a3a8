#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <vector>

#include "faults.h"
#include "platform/store.h"

namespace marrowfen {

using Values = std::vector<Value>;

/// The rows of one table of the store, each with a value for every field.
struct ContentTable {
    std::string name;
    std::vector<Values> rows;
};

/// What a game asks of the picture folders.
struct GameLook {
    std::string tiles;  ///< the folder of the tiles' pictures
    std::string faces;  ///< the folder of the keys' faces; may be empty where the keys are blank
    bool shows_faces = false;
    bool splits_hands = false;
    bool shows_pictures = false;            ///< on the keys, where the hands are not split
    std::vector<std::string> key_pictures;  ///< for the keys in their order; empty without a set of pictures
};

struct Content {
    std::vector<ContentTable> tables;
    std::vector<GameLook> looks;
};

/// Reads and checks the tables of the folder. With faults the content is incomplete and not to be used. Every picture
/// of a key must have its drawing in the folder of drawings; with an empty path that is not asked.
[[nodiscard]] Content read_content(const std::filesystem::path& folder, const std::filesystem::path& drawings,
                                   Faults& faults);

[[nodiscard]] ContentTable read_games(const std::filesystem::path& folder, const std::filesystem::path& drawings,
                                      std::vector<GameLook>& looks, Faults& faults);
/// Groups 1 to `groups` must be there.
[[nodiscard]] ContentTable read_words(const std::filesystem::path& file, const std::string& table, int groups,
                                      Faults& faults);
[[nodiscard]] ContentTable read_sentences(const std::filesystem::path& file, const std::string& table, Faults& faults);

}  // namespace marrowfen
