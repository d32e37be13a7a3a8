#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <variant>
#include <vector>

#include "key_cap.h"

namespace marrowfen {

/// A capital, a small letter or a digit.
struct Letter {
    char character;
};

/// A drawing by its name, without folder and extension.
struct Thing {
    std::string name;
};

/// A picture on a key cap.
struct KeyPicture {
    CapKind cap;
    std::variant<Letter, Thing> subject;
};

/// A picture card: the drawing alone, at the card's size.
struct CardPicture {
    Thing thing;
};

struct Picture {
    std::string file;  // below the folder of pictures, as the games ask for it
    std::variant<KeyPicture, CardPicture> content;
};

/// By key, a capital or a digit: the drawing that stands for it.
using Things = std::map<char, std::string>;

Things read_things(const std::filesystem::path& table);

/// What the games ask for. Throws Failure on a name that no rule of the folders gives a meaning, and on
/// a list that asks for nothing.
std::vector<Picture> read_picture_list(const std::filesystem::path& list, const Things& things);

}  // namespace marrowfen
