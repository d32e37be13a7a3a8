#include "rules/first_letters.h"

#include "content/frmPictureCard.h"

namespace marrowfen {

namespace {

struct Manner {
    std::string_view right_cue;
    std::string_view wrong_cue;
};
constexpr Manner kTyped{"magic.au", "donkey.au"};
constexpr Manner kClicked{"Magic.au", "Donkey.au"};

}  // namespace

void FirstLetters::judge(const Answer& answer) {
    State& state = program_.state;
    auto* card = program_.forms.find<frmPictureCard>();
    if (card == nullptr) return;
    const bool typed = answer.by == By::Typing;
    const Manner& manner = typed ? kTyped : kClicked;
    if (in_capitals(answer.letter) != in_capitals(card->pic.Tag.get())) {
        if (typed) {
            (void)cue_and_yield(manner.wrong_cue);
        } else if (!state.PhonicsOn) {
            (void)cue(manner.wrong_cue);
        }
        return;
    }
    const bool last = state.WordCursor == frmPictureCard::kCards - 1;
    if (last) set_won();
    if (state.PhonicsOn && !cue(phonic(answer.letter))) return;
    if (PictureBox* key = board().find_key(answer.letter)) {
        board().fill(*key, small_letter(typed ? key->Tag.get() : card->pic.Tag.get()));
    }
    ++state.WordCursor;
    if (!state.PhonicsOn && !cue_and_yield(manner.right_cue)) return;
    if (last) {
        end_game();
        return;
    }
    card->pic.Tag = card->draw_card().substr(0, 1);
}

}  // namespace marrowfen
