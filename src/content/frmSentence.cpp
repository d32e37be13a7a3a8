#include "content/frmSentence.h"

#include <array>

#include "content/frmWordsUsed.h"
#include "core/game_table.h"

namespace marrowfen {

namespace {

struct WordClass {
    std::string_view shown;
    std::string_view field;
};

constexpr std::array<WordClass, 3> kWordClasses{{{"Verb", "Verb"}, {"Noun", "noun"}, {"Adjective", "adjective"}}};

bool is_complete(const RowSet& sentences) {
    if (as_text(sentences.field("Sen")).empty()) return false;
    for (const WordClass& word_class : kWordClasses) {
        if (as_text(sentences.field(word_class.field)).empty()) return false;
    }
    return true;
}

}  // namespace

frmSentence::frmSentence(Program& program)
    : ListeningForm(
          program,
          {.size = {5580, 855}, .placement = Placement::Own, .key_preview = KeyPreview::Yes, .spoken = "Sentence"}) {}

void frmSentence::place() {
    Left = desktop().screen().width - Width;
    Top = 0;
}

void frmSentence::load() {
    State& state = program_.state;
    auto& found = program_.forms.load<frmWordsUsed>();
    found.Wordsfound.Caption = "";
    desktop().repaint_now(found);
    state.TypedLength = 0;
    state.TypedText.clear();
    state.TargetPos = 0;
    const Game* game = find_game(state.TemplateID);
    if (game == nullptr || game->typed != RuleId::SentenceWords) return;
    state.ContentTable = game->content_table;
    const auto shown = show_first_sentence();
    if (const auto* failure = shown.failure()) {
        program_.tell_unreadable(*failure);
        program_.forms.unload(kId);
        return;
    }
    if (shown.value() == 0) {
        wordtype.Text = Sentence.Text = "";
        state.TargetText.clear();
        program_.tell("There are no sentences for this game. Please choose another one.");
    }
}

Result<State::Whole> frmSentence::show_first_sentence() {
    auto count = count_sentences();
    if (count.value_or(0) == 0) return count;
    return show_sentence(static_cast<State::Whole>(program_.ports.random.draw(count.value())), count.value());
}

Result<State::Whole> frmSentence::count_sentences() const {
    const auto sentences = program_.open_rows(program_.state.ContentTable);
    State::Whole count = 0;
    auto row = sentences->move_first();
    for (; row.value_or(false); row = sentences->move_next()) ++count;
    if (const auto* failure = row.failure()) return *failure;
    return count;
}

Result<State::Whole> frmSentence::show_sentence(State::Whole first, State::Whole count) {
    const auto sentences = program_.open_rows(program_.state.ContentTable);
    for (State::Whole tried = 0; tried < count; ++tried) {
        const auto row = static_cast<State::Whole>((first - 1 + tried) % count + 1);
        auto is_there = sentences->move_first();
        if (is_there.value_or(false)) is_there = sentences->move_forward(row - 1);
        if (const auto* failure = is_there.failure()) return *failure;
        if (!is_complete(*sentences)) continue;
        const WordClass& asked = kWordClasses[static_cast<std::size_t>(program_.ports.random.draw(3) - 1)];
        wordtype.Text = std::string(asked.shown);
        program_.state.TargetText = as_text(sentences->field(asked.field));
        Sentence.Text = as_text(sentences->field("Sen"));
        return row;
    }
    return State::Whole{0};
}

}  // namespace marrowfen
