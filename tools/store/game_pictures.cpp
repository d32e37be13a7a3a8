#include "game_pictures.h"

#include <algorithm>
#include <cctype>
#include <set>

#include "board/key_table.h"
#include "content/card_words.h"
#include "core/game_table.h"
#include "platform/letter_case.h"

namespace marrowfen {

namespace {

class PictureList {
public:
    explicit PictureList(const ThingNames& things) : things_(things) {}

    /// One for each of the 36 keys, also where a game asks for one hand alone.
    void add_set(CapKind cap, std::string_view name) {
        const std::string_view set =
            *std::ranges::find_if(kPictureSets, [name](std::string_view known) { return same_name(known, name); });
        for (std::size_t i = 0; i < kKeyPlaces.size(); ++i) {
            const char key = kKeyPlaces[i].tag;
            const std::string path = key_picture(cap, set, {&key, 1});
            if (set == kThings) {
                add({path, cap, {}, things_[i]});
            } else {
                add({path, cap, set == kLower ? static_cast<char>(std::tolower(key)) : key, {}});
            }
        }
    }

    void add_thing(const std::string& thing) { add({thing_picture(thing), CapKind::Face, {}, thing}); }
    void add_card(std::string_view word) { add({card_picture(word), {}, {}, std::string(word)}); }

    [[nodiscard]] std::vector<ListedPicture> take() { return std::move(pictures_); }

private:
    void add(ListedPicture picture) {
        picture.file.erase(0, kPictureFolder.size());
        std::ranges::replace(picture.file, '\\', '/');
        if (seen_.insert(picture.file).second) pictures_.push_back(std::move(picture));
    }

    const ThingNames& things_;
    std::vector<ListedPicture> pictures_;
    std::set<std::string> seen_;
};

void add_faces(PictureList& list, const GameLook& look) {
    if (!look.shows_faces) return;
    if (look.shows_things && !look.splits_hands) {
        for (const std::string& thing : look.things) list.add_thing(thing);
        return;
    }
    list.add_set(CapKind::Face, look.faces);
    if (look.splits_hands) list.add_set(CapKind::RightFace, look.faces);
}

}  // namespace

std::vector<ListedPicture> pictures_for(const Content& content) {
    PictureList list(content.things);
    list.add_set(CapKind::Tile, kUpper);  // the letter tried
    list.add_set(CapKind::Tile, kLower);  // the letter found
    for (const std::string_view word : kCardWords) list.add_card(word);
    for (const Game& game : listed_games()) {
        if (game.is_typing_test()) list.add_set(CapKind::Face, game.typing_test_pictures);
    }
    for (const GameLook& look : content.looks) {
        add_faces(list, look);
        list.add_set(CapKind::Tile, look.tiles);
        if (look.splits_hands) list.add_set(CapKind::RightTile, look.tiles);
    }
    return list.take();
}

}  // namespace marrowfen
