// Play with the mouse: the mark that follows the pointer, and the tile that is dropped on a key.

#include "board/frmSimpleKeyBoard.h"

namespace marrowfen {

namespace {

constexpr Twips kMarkOffset = 2;

}  // namespace

void frmSimpleKeyBoard::mark(const PictureBox& field) {
    marked_ = &field;
    PanBorder.Visible = true;
    PanBorder.Top = field.Top - kMarkOffset;
    PanBorder.Left = field.Left - kMarkOffset;
}

void frmSimpleKeyBoard::drag_over(PictureBox& key, DragState state) {
    if (state == DragState::Leave) PanBorder.Visible = false;
    if (state != DragState::Enter) return;
    mark(key);
    PanBorder.bring_to_front();
}

void frmSimpleKeyBoard::drop(PictureBox& key, PictureBox& tile) {
    PanBorder.Visible = false;
    // A key that is typed at this moment may just be taking the tile's letter: the drop waits for it, and means the
    // letter that the pupil let go.
    program_.referee->in_turn([this, &key, &tile, letter = tile.Tag.get()] {
        if (!tile.Visible || tile.Tag != letter) return;
        State& state = program_.state;
        if (tile.Tag != key.Tag) {
            if (state.PhonicsOn) program_.PlayCue("Steely~1.au");
            return;
        }
        fill(key, tile.Picture);
        if (++state.KeysDone == kKeyCount) {
            program_.referee->win_tiles(tile);
            return;
        }
        refill(tile);
        program_.PlayCue(state.PhonicsOn ? phonic(key.Tag.get()) : "Cling.au");
    });
}

}  // namespace marrowfen
