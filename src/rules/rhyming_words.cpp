#include "rules/rhyming_words.h"

#include <algorithm>
#include <span>

#include "content/frmWord.h"
#include "content/frmWordsUsed.h"
#include "core/game_table.h"
#include "core/key_pictures.h"

namespace marrowfen {

namespace {

struct Manner {
    std::string_view same_word_cue;
    std::string_view wrong_cue;
    std::string_view right_cue;
    std::string_view finished_cue;
    bool yields_after_lookup;
};
constexpr Manner kTyped{"Donkey.au", "donkey.au", "magic.au", "ding.wav", false};
constexpr Manner kClicked{"Donkey.au", "Donkey.au", "Magic.au", "Ding.wav", true};

}  // namespace

void RhymingWords::judge(const Answer& answer) {
    const Manner& manner = answer.by == By::Typing ? kTyped : kClicked;
    State& state = program_.state;
    auto* card = program_.forms.find<frmWord>();
    if (card == nullptr) return;
    if (state.RhymesLeft == 0) {
        if (state.WordCursor < kGroupsInAGame) draw_next_word();  // else there is none in the whole store
        return;
    }
    card->Image1.Visible = true;
    card->Image1.Picture = Picture::file(program_.path(key_picture(CapKind::Tile, kUpper, answer.letter)));
    card->Image1.Spoken = in_capitals(answer.letter);
    state.TypedText = in_capitals(answer.letter) + card->end.Caption.get();
    if (card->theword.Caption == state.TypedText) {
        (void)cue_and_yield(manner.same_word_cue);
        return;
    }
    const auto judged = is_right(answer.letter);
    if (const auto* failure = judged.failure()) return program_.tell_unreadable(*failure);
    const bool right = judged.value();
    if (right && state.RhymesLeft == 1 && state.WordCursor == kGroupsInAGame - 1) set_won();
    if (manner.yields_after_lookup && !yield()) return;
    if (!right) {
        (void)cue_and_yield(manner.wrong_cue);
        return;
    }
    if (accept(answer.letter, manner.right_cue) && state.RhymesLeft == 0) next_word(manner.finished_cue);
}

Result<bool> RhymingWords::is_right(const std::string& letter) {
    const State& state = program_.state;
    const auto group = program_.LookupWord(state.ContentTable, "ID", state.TypedText);
    if (const auto* failure = group.failure()) return *failure;
    if (as_whole(group.value()) == 0) return false;
    const auto found = std::span(state.WordsFound).first(static_cast<std::size_t>(state.FoundCount) + 1);
    return std::ranges::find(found, letter) == found.end();
}

bool RhymingWords::accept(const std::string& letter, std::string_view cue) {
    State& state = program_.state;
    if (!cue_and_yield(cue)) return false;
    ++state.FoundCount;
    state.WordsFound[static_cast<std::size_t>(state.FoundCount)] = letter;
    if (auto* found = program_.forms.find<frmWordsUsed>()) {
        found->Wordsfound.Caption = found->Wordsfound.Caption.get() + "   " + state.TypedText;
    }
    --state.RhymesLeft;
    program_.forms.find<frmWord>()->show_words_left();
    return true;
}

void RhymingWords::next_word(std::string_view cue) {
    State& state = program_.state;
    if (!cue_and_yield(cue)) return;
    state.FoundCount = 0;
    if (auto* found = program_.forms.find<frmWordsUsed>()) found->Wordsfound.Caption = "";
    if (state.WordCursor >= kGroupsInAGame - 1) {
        end_game();
        return;
    }
    ++state.WordCursor;
    draw_next_word();
}

void RhymingWords::draw_next_word() {
    auto& card = *program_.forms.find<frmWord>();
    const auto drawn = card.draw_word();
    if (const auto* failure = drawn.failure()) return program_.tell_unreadable(*failure);
    if (drawn.value()) {
        card.Image1.Visible = false;
    } else {
        end_game();
    }
}

}  // namespace marrowfen
