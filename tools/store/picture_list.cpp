#include "picture_list.h"

#include <map>

#include "board/key_table.h"
#include "content/card_words.h"
#include "platform/sqlite/folding.h"

namespace marrowfen {

namespace {

// Faces of keys have the extension in capitals, tiles and cards in small letters.
constexpr const char* kFace = ".BMP";
constexpr const char* kTile = ".bmp";

class PictureList {
public:
    void add(const std::string& folder, const std::string& name, const char* extension) {
        const std::string file = spelling_of(folder) + "/" + name + extension;
        if (seen_.try_emplace(folded(file), file).second) files_.push_back(file);
    }

    /// One for each of the 36 keys, also where a game asks for one hand alone.
    void add_keys(const std::string& folder, const char* extension) {
        for (const KeyPlace& key : kKeyPlaces) add(folder, std::string(1, key.tag), extension);
    }

    [[nodiscard]] std::vector<std::string> take() { return std::move(files_); }

private:
    /// That of its first mention, which holds for the folders above it as well.
    std::string spelling_of(const std::string& folder) {
        const auto slash = folder.rfind('/');
        const std::string spelled =
            slash == std::string::npos ? folder : spelling_of(folder.substr(0, slash)) + folder.substr(slash);
        return folders_.try_emplace(folded(folder), spelled).first->second;
    }

    std::map<std::string, std::string> folders_;
    std::map<std::string, std::string> seen_;
    std::vector<std::string> files_;
};

void add_faces(PictureList& list, const GameLook& look) {
    if (!look.shows_faces) return;
    if (look.shows_pictures && !look.splits_hands) {
        for (const std::string& picture : look.key_pictures) list.add("Simple/Back/Pictures", picture, kFace);
        return;
    }
    list.add_keys("Simple/Back/" + look.faces, kFace);
    if (look.splits_hands) list.add_keys("Simple/RightHand/" + look.faces, kFace);
}

}  // namespace

std::vector<std::string> pictures_for(const Content& content) {
    PictureList list;
    for (const char* letters : {"Upper", "Lower"}) {
        list.add_keys(std::string("Simple/") + letters, kTile);       // the letter tried, the letter found
        list.add_keys(std::string("Simple/Back/") + letters, kFace);  // the typing tests
    }
    for (const std::string_view card : kCardWords) list.add("Simple/Back/Pictures/Flash", std::string(card), kTile);
    for (const GameLook& look : content.looks) {
        add_faces(list, look);
        list.add_keys("Simple/" + look.tiles, kTile);
        if (look.splits_hands) list.add_keys("Simple/Back/RightHand/" + look.tiles, kTile);
    }
    return list.take();
}

}  // namespace marrowfen
