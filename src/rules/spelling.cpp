#include "rules/spelling.h"

#include "content/frmWordsUsed.h"

namespace marrowfen {

namespace {

struct Manner {
    std::string_view wrong_cue;
};
constexpr Manner kTyped{"donkey.au"};
constexpr Manner kClicked{"Donkey.au"};

}  // namespace

void Spelling::judge(const Answer& answer) {
    State& state = program_.state;
    auto* found = program_.forms.find<frmWordsUsed>();
    if (found == nullptr) return;
    if (state.TargetText.empty()) return draw_missing_word();
    const std::string target = in_capitals(state.TargetText);
    const Manner& manner = answer.by == By::Typing ? kTyped : kClicked;

    state.TypedText = in_capitals(state.TypedText + answer.letter);
    show_found(found->Wordsfound.Caption.get() + shown(answer));
    if (is_last_word() && state.TypedText == target) set_won();
    repaint_found();
    if (yields_after_showing(answer.by) && !yield()) return;

    ++state.TypedLength;
    const auto length = static_cast<std::size_t>(state.TypedLength);
    if (target.substr(0, length) != state.TypedText) {
        if (!cue_and_yield(manner.wrong_cue)) return;
        --state.TypedLength;
        state.TypedText.resize(length - 1);
        show_found(state.TypedText);
        repaint_found();
        return;
    }
    if (state.TypedText == target) word_finished(answer);
}

void Spelling::show_found(const std::string& text) {
    if (auto* found = program_.forms.find<frmWordsUsed>()) found->Wordsfound.Caption = text;
}

void Spelling::repaint_found() {
    if (auto* found = program_.forms.find<frmWordsUsed>()) program_.desktop.repaint_now(*found);
}

}  // namespace marrowfen
