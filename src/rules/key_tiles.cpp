#include "rules/key_tiles.h"

#include <algorithm>

namespace marrowfen {

namespace {

// Typing serves the first tile. Once that one has left the board, the next one still on show takes its place, so that
// a pupil who only types can finish.
PictureBox* tile_for_typing(frmSimpleKeyBoard& board) {
    const auto tile = std::ranges::find_if(board.DragKey, [](const PictureBox& t) { return t.Visible.get(); });
    return tile == board.DragKey.end() ? nullptr : &*tile;
}

}  // namespace

void KeyTiles::judge(const Answer& answer) {
    State& state = program_.state;
    PictureBox* tile = tile_for_typing(board());
    if (tile == nullptr) return;
    if (tile->Tag != in_capitals(answer.letter)) {
        if (!state.PhonicsOn) (void)cue_and_yield("Steely~1.au");
        return;
    }
    const bool last = state.KeysDone == kKeyCount - 1;
    if (last) set_won();
    if (state.PhonicsOn && !cue(phonic(tile->Tag.get()))) return;
    board().fill(*board().find_key(answer.letter), tile->Picture);
    ++state.KeysDone;
    if (last) {
        win(*tile);
        return;
    }
    board().refill(*tile);
    if (!state.PhonicsOn) (void)cue_and_yield("Cling.au");
}

void KeyTiles::win(PictureBox& tile) {
    set_won();
    if (!cue_and_yield("Applause.wav")) return;
    tile.Visible = false;
    end_game();
}

}  // namespace marrowfen
