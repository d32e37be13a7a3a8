#include "picture_list.h"

#include <algorithm>
#include <cctype>
#include <optional>
#include <set>
#include <string_view>

#include "../failure.h"
#include "disk.h"

namespace marrowfen {
namespace {

/// Which cap the sets of a folder are drawn on. Tiles lie beside the sets of the key faces, not above them.
struct Shelf {
    std::string_view folder;
    CapKind cap;
};
constexpr Shelf kShelves[] = {
    {"Simple", CapKind::Tile},
    {"Simple/Back/RightHand", CapKind::RightTile},
    {"Simple/Back", CapKind::Face},
    {"Simple/RightHand", CapKind::RightFace},
};
constexpr std::string_view kThings = "Simple/Back/Pictures";
constexpr std::string_view kCards = "Simple/Back/Pictures/Flash";
constexpr std::string_view kSets = "Upper, Lower and Pictures";

struct Name {
    std::string whole, folder, base;
};

[[noreturn]] void refuse(const Name& name, const std::string& why) {
    throw Failure("The picture list asks for " + name.whole + ", but " + why + ".");
}

Name parted(const std::string& line) {
    const std::size_t slash = line.rfind('/');
    Name name{line, slash == std::string::npos ? "" : line.substr(0, slash), line.substr(slash + 1)};
    if (!name.base.ends_with(".bmp") && !name.base.ends_with(".BMP")) refuse(name, "pictures end in .bmp or .BMP");
    name.base.resize(name.base.size() - 4);
    return name;
}

bool is_key(const std::string& base) {
    constexpr std::string_view kKeys = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
    return base.size() == 1 && kKeys.find(base[0]) != std::string_view::npos;
}

std::variant<Letter, Thing> subject_of(const Name& name, std::string_view set, const Things& things) {
    if (!is_key(name.base)) refuse(name, "a set's files are named after their keys, A to Z and 0 to 9");
    const char key = name.base[0];
    if (set == "Upper") return Letter{key};
    if (set == "Lower") return Letter{static_cast<char>(std::tolower(key))};
    if (set != "Pictures") refuse(name, "there is no set " + std::string(set) + ": the sets are " + std::string(kSets));
    const auto thing = things.find(key);
    if (thing == things.end()) refuse(name, "the table of things has no picture for this key");
    return Thing{thing->second};
}

Picture picture_of(const Name& name, const Things& things) {
    if (name.folder == kCards) return {name.whole, CardPicture{{name.base}}};
    if (name.folder == kThings && !is_key(name.base)) return {name.whole, KeyPicture{CapKind::Face, Thing{name.base}}};
    const std::size_t slash = std::min(name.folder.rfind('/'), name.folder.size());
    const auto shelf = std::ranges::find(kShelves, std::string_view(name.folder).substr(0, slash), &Shelf::folder);
    if (shelf == std::end(kShelves) || slash == name.folder.size()) refuse(name, "no game has such a folder");
    return {name.whole, KeyPicture{shelf->cap, subject_of(name, name.folder.substr(slash + 1), things)}};
}

}  // namespace

Things read_things(const std::filesystem::path& table) {
    Things things;
    for (const std::string& line : read_lines(table, "The table of things")) {
        const std::size_t tab = line.find('\t');
        if (tab == 1) things[line[0]] = line.substr(tab + 1);
    }
    if (things.empty()) throw Failure("The table of things " + table.string() + " names no thing.");
    return things;
}

std::vector<Picture> read_picture_list(const std::filesystem::path& list, const Things& things) {
    std::vector<Picture> pictures;
    std::set<std::string> seen;
    for (const std::string& line : read_lines(list, "The picture list")) {
        if (seen.insert(line).second) pictures.push_back(picture_of(parted(line), things));
    }
    if (pictures.empty()) throw Failure("The picture list " + list.string() + " asks for no picture.");
    return pictures;
}

}  // namespace marrowfen
