#include "content/frmPictureCard.h"

#include <utility>

#include "core/game_table.h"
#include "core/key_pictures.h"

namespace marrowfen {

namespace {

constexpr Twips kFromRightEnd = 130;

}  // namespace

frmPictureCard::frmPictureCard(Program& program)
    : ProgramForm(program, {.size = {1785, 1890}, .placement = Placement::Own, .spoken = "Picture card"}) {}

void frmPictureCard::SetPics() {
    for (std::size_t i = 0; i < kCardWords.size(); ++i) program_.state.CardWords[i + 1] = kCardWords[i];
}

void frmPictureCard::place() {
    const Form* board = program_.forms.find(FormId::frmSimpleKeyBoard);
    if (board == nullptr) return;
    Top = board->Top - Height;
    Left = board->Left + board->Width - Width - kFromRightEnd;
}

void frmPictureCard::load() {
    SetPics();
    State& state = program_.state;
    state.WordCursor = 0;
    state.TargetText = draw_card();
    pic.Tag = in_capitals(state.TargetText.substr(0, 1));
}

std::string frmPictureCard::draw_card() {
    State& state = program_.state;
    const auto word = [&state]() -> std::string& { return state.CardWords[static_cast<std::size_t>(state.CardIndex)]; };
    do {
        state.CardIndex = static_cast<State::Whole>(program_.ports.random.draw(kCards));
    } while (word().empty());
    pic.Picture = Picture::file(program_.path(card_picture(word())));
    const Game* game = find_game(state.TemplateID);
    const bool is_answer = game != nullptr && game->typed == RuleId::PictureSpelling;
    pic.Spoken = is_answer ? "Picture " + std::to_string(state.WordCursor + 1) : word();
    return std::exchange(word(), {});
}

}  // namespace marrowfen
