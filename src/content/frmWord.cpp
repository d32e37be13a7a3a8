#include "content/frmWord.h"

#include <algorithm>
#include <vector>

#include "core/game_table.h"

namespace marrowfen {

namespace {

struct Rhyme {
    std::string word;
    std::string ending;
};

// A row without a word or an ending can't be played, so it does not count.
Result<std::vector<Rhyme>> rows_of_group(RowSet& words, State::Whole group) {
    std::vector<Rhyme> rhymes;
    const std::string in_group = where_number("id", group);
    auto found = words.find_first(in_group);
    for (; found.value_or(false); found = words.find_next(in_group)) {
        Rhyme rhyme{as_text(words.field("word")), as_text(words.field("end"))};
        if (!rhyme.word.empty() && !rhyme.ending.empty()) rhymes.push_back(std::move(rhyme));
    }
    if (const auto* failure = found.failure()) return *failure;
    return rhymes;
}

}  // namespace

frmWord::frmWord(Program& program)
    : ListeningForm(program, {.size = {8400, 705},
                              .placement = Placement::Own,
                              .key_preview = KeyPreview::Yes,
                              .spoken = "Word to rhyme with"}) {}

void frmWord::place() {
    Left = desktop().screen().width - Width;
    Top = 0;
}

void frmWord::load() {
    State& state = program_.state;
    const Game* game = find_game(state.TemplateID);
    if (game == nullptr || game->rhyme_groups == 0) return;
    state.ContentTable = game->content_table;
    for (State::Whole i = 0; i < game->rhyme_groups; ++i) {
        state.UsedRowIds[static_cast<std::size_t>(i)] = static_cast<State::Whole>(i + 1);
    }
    state.WordCursor = 0;
    state.RhymesLeft = 0;
    const auto drawn = draw_word();
    if (const auto* failure = drawn.failure()) {
        program_.tell_unreadable(*failure);
        program_.forms.unload(kId);
        return;
    }
    if (drawn.value()) {
        // The first word's own last letter counts as found already.
        state.FoundCount = 1;
        state.WordsFound[1] = theword.Caption->substr(theword.Caption->size() - 1);
    } else {
        program_.tell("There are no words for this game. Please choose another one.");
    }
    state.TypedText.clear();
}

Result<bool> frmWord::draw_word() {
    State& state = program_.state;
    const auto words = program_.open_rows(state.ContentTable);
    for (; state.WordCursor < kGroupsInAGame; ++state.WordCursor) {
        const auto read = rows_of_group(*words, state.UsedRowIds[static_cast<std::size_t>(state.WordCursor)]);
        if (const auto* failure = read.failure()) return *failure;
        const auto& rhymes = read.value();
        const int count = static_cast<int>(rhymes.size());
        if (count < kFewestRhymes) continue;
        // One number says which word is on show and how many others are asked for. It stops short of the last rows, so
        // that the group always holds more than is asked for.
        int highest = program_.ports.random.draw(count);
        if (count - highest < 2) highest -= 2;
        const int drawn = program_.ports.random.draw(std::max(highest, 1));
        const Rhyme& rhyme = rhymes[static_cast<std::size_t>(drawn - 1)];
        theword.Caption = rhyme.word;
        end.Caption = rhyme.ending;
        state.RhymesLeft = static_cast<State::Whole>(drawn);
        show_words_left();
        return true;
    }
    return false;
}

void frmWord::show_words_left() {
    Label1.Caption = "Find " + std::to_string(program_.state.RhymesLeft) + " words that rhyme with";
}

}  // namespace marrowfen
