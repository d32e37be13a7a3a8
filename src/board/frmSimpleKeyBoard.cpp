#include "board/frmSimpleKeyBoard.h"

#include "core/game_table.h"

namespace marrowfen {

namespace {

constexpr Colour kPanBorderColour = rgb(192, 0, 0);

}  // namespace

frmSimpleKeyBoard::frmSimpleKeyBoard(Program& program)
    : ListeningForm(
          program,
          {.size = {11940, 5565}, .key_preview = KeyPreview::Yes, .back = rgb(230, 249, 57), .spoken = "Keyboard"}),
      PanBorder(*this, {5775, 2400, 735, 675}, {.outline = kPanBorderColour, .outline_pixels = 2}) {
    const Game* game = find_game(program.state.TemplateID);
    const bool takes_clicks = game != nullptr && game->clicked != RuleId::None;
    // The drawn keyboard shows through a key without a face.
    for (int i = 1; i <= kKeyCount; ++i) {
        const KeyPlace& place = kKeyPlaces[static_cast<std::size_t>(i - 1)];
        PictureBox& key = Keys.add(*this, Rect{place.left, place.top, kKeySize.width, kKeySize.height}, std::nullopt);
        key.Tag = std::string(1, place.tag);
        key.Enabled = false;
        if (takes_clicks) key.on_click = [this, i] { program_.referee->Keys_Click(i); };
        key.on_drag_over = [this, &key](DragState state) { drag_over(key, state); };
        key.on_drag_drop = [this, &key](PictureBox& tile) { drop(key, tile); };
    }
    for (const Twips left : kTileLefts) {
        PictureBox& tile = DragKey.add(*this, Rect{left, kTileTop, kKeySize.width, kKeySize.height}, std::nullopt,
                                       DragMode::Automatic);
        tile.Tag = "A";
        tile.Enabled = false;
        tile.Visible = false;
        tile.on_mouse_move = [this, &tile] { mark(tile); };
    }
    PanBorder.Visible = false;
    PanBorder.bring_to_front();
}

void frmSimpleKeyBoard::SetAlpha() {
    for (int i = 1; i <= kKeyCount; ++i) program_.state.KeyLetters[static_cast<std::size_t>(i)] = Keys[i].Tag;
}

void frmSimpleKeyBoard::SetRhand() { program_.state.RightHandKeys.assign(kRightHand.begin(), kRightHand.end()); }

void frmSimpleKeyBoard::load() {
    State& state = program_.state;
    state.GameRunning = false;
    CurrentKey = 0;
    state.PanelsDone = 0;
    state.KeysDone = 0;
    state.GameWon = false;
    state.GameRs = program_.open_rows("Templates");
    SetAlpha();
    SetRhand();
    const auto is_there = read_template();
    program_.forms.unload(FormId::frmSettings);
    if (!is_there.value_or(false)) {
        program_.forms.show(FormId::frmGames);
        if (const auto* failure = is_there.failure()) {
            program_.tell_unreadable(*failure);
        } else {
            program_.tell("Sorry, this game can't be found. Please choose another one.");
        }
        program_.forms.unload(kId);
        return;
    }
    if (as_flag(state.GameRs->field("backgroundletters"))) paint_faces();

    const Game* game = find_game(state.TemplateID);
    if (game == nullptr || game->deals_tiles) {
        deal_first_tiles();
        return;
    }
    state.WordsFound.fill({});
    state.TypedText.clear();
    state.TypedLength = 0;
}

Result<bool> frmSimpleKeyBoard::read_template() {
    State& state = program_.state;
    auto found = state.GameRs->find_first(where_number("Template_ID", state.TemplateID));
    if (!found.value_or(false)) return found;
    state.PanelCount = as_whole(state.GameRs->field("Panels"));
    state.DragType = as_text(state.GameRs->field("dragtype"));
    return state.PanelCount >= 0 && state.PanelCount < kTileCount;
}

void frmSimpleKeyBoard::resized() {
    program_.forms.show(FormId::frmTimer);
    const Game* game = find_game(program_.state.TemplateID);
    if (game == nullptr) return;
    for (const FormId companion : game->companions) {
        program_.forms.show(companion);
        if (program_.forms.find(companion) == nullptr) return leave_game();  // it has said why it can't be played
    }
    if (!game->clears_the_desk) return;
    using enum FormId;
    program_.forms.unload({frmWord, frmWordsUsed, frmSentence, frmPictureCard});
}

PictureBox* frmSimpleKeyBoard::find_key(std::string_view letter) {
    const std::string tag = in_capitals(letter);
    for (PictureBox& key : Keys) {
        if (key.Tag == tag) return &key;
    }
    return nullptr;
}

void frmSimpleKeyBoard::fill(PictureBox& key, const Picture& picture) {
    key.Picture = picture;
    key.Spoken = key.Tag.get() + ", done";
}

void frmSimpleKeyBoard::enable_play() {
    for (PictureBox& tile : DragKey) tile.Enabled = true;
    for (PictureBox& key : Keys) key.Enabled = true;
}

void frmSimpleKeyBoard::leave_game() {
    const Game* game = find_game(program_.state.TemplateID);
    if (game != nullptr) {
        for (const FormId companion : game->companions) program_.forms.unload(companion);
    }
    program_.forms.show(FormId::frmGames);
    program_.forms.unload({kId, FormId::frmTimer});
}

}  // namespace marrowfen
