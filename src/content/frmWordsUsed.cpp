#include "content/frmWordsUsed.h"

namespace marrowfen {

namespace {

constexpr Twips kOverlap = 100;  // the foot of the board shows through

}  // namespace

frmWordsUsed::frmWordsUsed(Program& program)
    : ListeningForm(program, {.size = {10665, 705},
                              .placement = Placement::Own,
                              .key_preview = KeyPreview::Yes,
                              .bare_top = kOverlap,
                              .spoken = "Your answers"}) {}

void frmWordsUsed::place() {
    const Form* board = program_.forms.find(FormId::frmSimpleKeyBoard);
    if (board == nullptr) return;
    Width = board->Width.get();
    Left = board->Left.get();
    Top = board->Top + board->Height - kOverlap;
}

}  // namespace marrowfen
