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
    : ListeningForm(program, {.size = {5580, 855}, .placement = Placement::Own, .key_preview = KeyPreview::Yes}) {}

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
    const State::Whole count = count_sentences();
    if (count == 0 || show_sentence(static_cast<State::Whole>(program_.ports.random.draw(count)), count) == 0) {
        wordtype.Text = Sentence.Text = "";
        state.TargetText.clear();
        program_.tell("There are no sentences for this game. Please choose another one.");
    }
}

State::Whole frmSentence::count_sentences() const {
    const auto sentences = program_.open_rows(program_.state.ContentTable);
    State::Whole count = 0;
    for (; !sentences->at_end(); sentences->move_next()) ++count;
    return count;
}

State::Whole frmSentence::show_sentence(State::Whole first, State::Whole count) {
    const auto sentences = program_.open_rows(program_.state.ContentTable);
    for (State::Whole tried = 0; tried < count; ++tried) {
        const auto row = static_cast<State::Whole>((first - 1 + tried) % count + 1);
        sentences->move_first();
        sentences->move_forward(row - 1);
        if (!is_complete(*sentences)) continue;
        const WordClass& asked = kWordClasses[static_cast<std::size_t>(program_.ports.random.draw(3) - 1)];
        wordtype.Text = std::string(asked.shown);
        program_.state.TargetText = as_text(sentences->field(asked.field));
        Sentence.Text = as_text(sentences->field("Sen"));
        return row;
    }
    return 0;
}

}  // namespace marrowfen
