#include "content/frmPictureCard.h"
#include "rules/spelling.h"

namespace marrowfen {

namespace {

enum class Marks : std::uint8_t { FirstLetter, LastLetter };

struct Manner {
    std::string_view right_cue;
    Marks marks;  ///< the key that shows its small letter once a word is finished
};
constexpr Manner kTyped{"magic.au", Marks::FirstLetter};
constexpr Manner kClicked{"Magic.au", Marks::LastLetter};

}  // namespace

bool PictureSpelling::is_last_word() const { return program_.state.WordCursor == frmPictureCard::kCards - 1; }

void PictureSpelling::word_finished(const Answer& answer) {
    State& state = program_.state;
    const Manner& manner = answer.by == By::Typing ? kTyped : kClicked;
    PictureBox* key = manner.marks == Marks::LastLetter ? answer.key : board().find_key(state.TargetText.substr(0, 1));
    if (key != nullptr) board().fill(*key, small_letter(key->Tag.get()));
    const bool last = is_last_word();
    if (!cue_and_yield(manner.right_cue)) return;
    show_found("");
    ++state.WordCursor;
    if (last) {
        end_game();
        return;
    }
    auto* card = program_.forms.find<frmPictureCard>();
    if (card == nullptr) return;
    state.TargetText = card->draw_card();
    state.TypedText.clear();
    state.TypedLength = 0;
}

}  // namespace marrowfen
