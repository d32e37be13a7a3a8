#include "core/key_pictures.h"

namespace marrowfen {

namespace {

// Faces of keys have the extension in capitals, tiles and cards in small letters.
struct Shelf {
    std::string_view folder;
    std::string_view extension;
};

constexpr Shelf kCards{"Simple\\Back\\Pictures\\Flash\\", ".bmp"};

constexpr Shelf shelf_of(CapKind cap) {
    switch (cap) {
        case CapKind::Tile:
            return {"Simple\\", ".bmp"};
        case CapKind::RightTile:
            return {"Simple\\Back\\RightHand\\", ".bmp"};
        case CapKind::RightFace:
            return {"Simple\\RightHand\\", ".BMP"};
        case CapKind::Face:
            break;
    }
    return {"Simple\\Back\\", ".BMP"};
}

std::string file_on(const Shelf& shelf, const std::string& name) {
    return std::string(kPictureFolder).append(shelf.folder).append(name).append(shelf.extension);
}

}  // namespace

std::string key_picture(CapKind cap, std::string_view set, std::string_view key) {
    return file_on(shelf_of(cap), std::string(set).append("\\").append(key));
}

std::string thing_picture(std::string_view thing) { return key_picture(CapKind::Face, kThings, thing); }

std::string card_picture(std::string_view word) { return file_on(kCards, std::string(word)); }

}  // namespace marrowfen
