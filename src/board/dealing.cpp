// Which letter lies on which tile, and which picture stands for it.

#include "board/frmSimpleKeyBoard.h"
#include "core/key_pictures.h"

namespace marrowfen {

namespace {

constexpr int kFirstDealDrawsFrom = kKeyCount - 1;  // the opening deal leaves the last key, A, for later

auto& letter_of(int key, auto& state) { return state.KeyLetters[static_cast<std::size_t>(key)]; }

std::string column_of(int key) { return "pic" + std::to_string(key); }

}  // namespace

bool frmSimpleKeyBoard::is_split() const { return as_flag(program_.state.GameRs->field("Split")); }

bool frmSimpleKeyBoard::is_right_hand(int key) const {
    State& state = program_.state;
    const auto count = static_cast<State::Whole>(state.RightHandKeys.size());
    for (state.KeyScan = 0; state.KeyScan < count; ++state.KeyScan) {
        if (state.RightHandKeys[static_cast<std::size_t>(state.KeyScan)] == key) return true;
    }
    return false;
}

void frmSimpleKeyBoard::paint_face(int number) {
    const State& state = program_.state;
    const RowSet& row = *state.GameRs;
    PictureBox& key = Keys[number];
    const bool split = is_split();
    if (!split && as_flag(row.field("background"))) {
        const std::string thing = as_text(row.field(column_of(number)));
        key.Picture = Picture::file(program_.path(thing_picture(thing)));
        key.Spoken = key.Tag.get() + ", " + thing;
        return;
    }
    const CapKind cap = split && is_right_hand(number) ? CapKind::RightFace : CapKind::Face;
    const std::string file = key_picture(cap, as_text(row.field("droptype")), letter_of(number, state));
    key.Picture = Picture::file(program_.path(file));
}

void frmSimpleKeyBoard::paint_faces() {
    for (int key = 1; key <= kKeyCount; ++key) paint_face(key);
}

Picture frmSimpleKeyBoard::tile_picture(int key) const {
    const State& state = program_.state;
    const CapKind cap = is_split() && is_right_hand(key) ? CapKind::RightTile : CapKind::Tile;
    return Picture::file(program_.path(key_picture(cap, state.DragType, letter_of(key, state))));
}

void frmSimpleKeyBoard::deal(PictureBox& tile, int key) {
    std::string& letter = letter_of(key, program_.state);
    tile.Tag = letter;
    tile.Spoken = "Tile " + letter;
    tile.Picture = tile_picture(key);
    letter.clear();
    ++program_.state.PanelsDone;
}

void frmSimpleKeyBoard::deal_first_tiles() {
    const auto is_out = [this] { return letter_of(CurrentKey, program_.state).empty(); };
    CurrentKey = 0;
    for (int i = 0; i <= program_.state.PanelCount; ++i) {
        do {
            CurrentKey = static_cast<State::Whole>(program_.ports.random.draw(kFirstDealDrawsFrom));
        } while (is_out());
        deal(DragKey[i], CurrentKey);
        DragKey[i].Visible = true;
    }
}

void frmSimpleKeyBoard::deal_next(PictureBox& tile) {
    while (letter_of(CurrentKey, program_.state).empty()) {
        CurrentKey = static_cast<State::Whole>(program_.ports.random.draw(kKeyCount));
    }
    deal(tile, CurrentKey);
}

void frmSimpleKeyBoard::refill(PictureBox& tile) {
    if (program_.state.PanelsDone == kKeyCount) {
        tile.Visible = false;
        if (marked_ == &tile) PanBorder.Visible = false;  // typed away under the pointer
    } else {
        deal_next(tile);
    }
}

}  // namespace marrowfen
