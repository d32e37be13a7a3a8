#include "content/frmSentence.h"
#include "core/game_table.h"
#include "rules/spelling.h"

namespace marrowfen {

namespace {

constexpr State::Whole kRowsCompared = 5;  // entries of UsedRowIds that a new row is held against

}  // namespace

bool SentenceWords::is_last_word() const { return program_.state.TargetPos == kSentencesInAGame - 1; }

void SentenceWords::word_finished(const Answer& answer) {
    State& state = program_.state;
    if (!cue_and_yield("magic.au")) return;
    state.TypedLength = 0;
    if (answer.by == By::Typing) {
        repaint_found();
        if (!yield()) return;
    }
    show_found("");
    ++state.TargetPos;
    state.TypedText.clear();
    if (state.TargetPos == kSentencesInAGame) {
        end_game();
        return;
    }
    draw_sentence();
}

// Until the next sentence is there, no word is asked for, least of all the old one again.
void SentenceWords::draw_sentence() {
    State& state = program_.state;
    auto* card = program_.forms.find<frmSentence>();
    if (card == nullptr) return;
    state.TargetText.clear();
    const auto row = show_next_sentence(*card);
    if (const auto* failure = row.failure()) return program_.tell_unreadable(*failure);
    if (row.value() != 0) state.UsedRowIds[static_cast<std::size_t>(state.TargetPos)] = row.value();
}

// A redrawn row is not held against the entries already passed, so a sentence can come up again, if rarely.
Result<State::Whole> SentenceWords::show_next_sentence(frmSentence& card) {
    State& state = program_.state;
    auto count = card.count_sentences();
    if (count.value_or(0) == 0) return count;
    const auto draw = [&] { return static_cast<State::Whole>(program_.ports.random.draw(count.value())); };
    State::Whole row = draw();
    for (state.KeyScan = 0; state.KeyScan < kRowsCompared; ++state.KeyScan) {
        if (state.UsedRowIds[static_cast<std::size_t>(state.KeyScan)] == row) row = draw();
    }
    return card.show_sentence(row, count.value());
}

}  // namespace marrowfen
