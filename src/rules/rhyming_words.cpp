#include "rules/rhyming_words.h"

#include <algorithm>

#include "content/frmWord.h"
#include "content/frmWordsUsed.h"

namespace marrowfen {

struct RhymingWords::Manner {
    std::string_view same_word_cue;
    std::string_view wrong_cue;
    std::string_view right_cue;
    std::string_view finished_cue;
    bool yields_after_lookup;
};
constexpr RhymingWords::Manner RhymingWords::kTyped{"Donkey.au", "donkey.au", "magic.au", "ding.wav", false};
constexpr RhymingWords::Manner RhymingWords::kClicked{"Donkey.au", "Donkey.au", "Magic.au", "Ding.wav", true};

void RhymingWords::judge(const Answer& answer) {
    const Manner& manner = answer.by == By::Typing ? kTyped : kClicked;
    State& state = program_.state;
    auto* card = program_.forms.find<frmWord>();
    if (card == nullptr) return;
    card->Image1.Visible = true;
    card->Image1.Picture = Picture::file(program_.path("\\KeyPictures\\Simple\\Upper\\") + answer.letter + ".bmp");
    state.TypedText = in_capitals(answer.letter) + card->end.Caption.get();
    const auto right = is_right(answer, manner);
    if (!right || (*right && !accept(answer, manner)) || state.RhymesLeft != 0) return;
    next_word(manner);
}

std::optional<bool> RhymingWords::is_right(const Answer& answer, const Manner& manner) {
    const State& state = program_.state;
    const auto wrong = [&](std::string_view cue) { return cue_and_yield(cue) ? std::optional(false) : std::nullopt; };

    if (program_.forms.find<frmWord>()->theword.Caption == state.TypedText) return wrong(manner.same_word_cue);
    const bool is_word = as_whole(program_.LookupWord(state.ContentTable, "ID", state.TypedText)) != 0;
    if (manner.yields_after_lookup && !yield()) return std::nullopt;
    if (!is_word) return wrong(manner.wrong_cue);
    const auto* found_end = state.WordsFound.begin() + state.FoundCount + 1;
    if (std::find(state.WordsFound.begin(), found_end, answer.letter) != found_end) return wrong(manner.wrong_cue);
    return true;
}

bool RhymingWords::accept(const Answer& answer, const Manner& manner) {
    State& state = program_.state;
    if (state.RhymesLeft == 1 && state.WordCursor == kGroupsInAGame - 1) set_won();
    if (!cue_and_yield(manner.right_cue)) return false;
    ++state.FoundCount;
    state.WordsFound[static_cast<std::size_t>(state.FoundCount)] = answer.letter;
    if (auto* found = program_.forms.find<frmWordsUsed>()) {
        found->Wordsfound.Caption = found->Wordsfound.Caption.get() + "   " + state.TypedText;
    }
    --state.RhymesLeft;
    program_.forms.find<frmWord>()->show_words_left();
    return true;
}

void RhymingWords::next_word(const Manner& manner) {
    State& state = program_.state;
    if (!cue_and_yield(manner.finished_cue)) return;
    state.FoundCount = 0;
    if (auto* found = program_.forms.find<frmWordsUsed>()) found->Wordsfound.Caption = "";
    auto& card = *program_.forms.find<frmWord>();
    if (state.WordCursor >= kGroupsInAGame - 1) {
        end_game();
        return;
    }
    ++state.WordCursor;
    if (card.draw_word()) {
        card.Image1.Visible = false;
    } else {
        end_game();
    }
}

}  // namespace marrowfen
