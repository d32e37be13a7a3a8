#include "pupils/frmGames.h"

#include "core/game_table.h"
#include "pupils/frmSettings.h"
#include "results/frmHalloffame.h"

namespace marrowfen {

namespace {

// The list holds texts only, "7. Name", so the number is read back out of its entry: one digit or two.
std::int64_t game_number(const std::string& entry) {
    const std::size_t digits = entry.find('.') == 2 ? 2 : 1;
    return as_whole(entry.substr(0, digits));
}

}  // namespace

frmGames::frmGames(Program& program) : ReadingForm(program, {.size = {9735, 8310}, .spoken = "Games"}) {
    List1.on_double_click = [this] { play(); };
    List1.on_enter_key = [this] {
        if (List1.selected_count() != 0) play();
    };
}

void frmGames::load() {
    ReadingForm::load();
    switch_sound(program_.state.SoundOn);
    switch_phonics(program_.state.PhonicsOn);
}

std::optional<StoreFailure> frmGames::read() {
    program_.state.GameRs = program_.open_rows("sortedgames");
    const auto games = lines_of(*program_.state.GameRs, [](const RowSet& row) {
        const std::string number = as_text(row.field("GameNumber"));
        return number + ". " + as_text(row.field("gamename"));
    });
    if (const auto* failure = games.failure()) return *failure;
    List1.clear();
    for (const std::string& game : games.value()) List1.add(game);
    return std::nullopt;
}

void frmGames::switch_sound(bool on) {
    program_.state.SoundOn = on;
    sound_.set(on);
}

void frmGames::switch_phonics(bool on) {
    program_.state.PhonicsOn = on;
    phonics_.set(on);
}

bool frmGames::has_chosen(const char* otherwise) {
    if (!is_complete()) {
        read_and(Failing::IsTold);
    } else if (List1.selected_count() == 0) {
        program_.tell(otherwise);
    }
    return List1.selected_count() != 0;
}

Result<Value> frmGames::selected_game() {
    return program_.LookupField("templates", "Template_id", where_number("GameNumber", game_number(List1.text())));
}

void frmGames::play() {
    if (!has_chosen("Please choose a game from the list.")) return;
    const auto game = selected_game();
    if (const auto* failure = game.failure()) return program_.tell_unreadable(*failure);
    State& state = program_.state;
    state.TemplateID = as_whole(game.value());
    state.HallViewOnly = false;
    using Id = FormId;
    if (is_typing_test(state.TemplateID)) {
        state.TimeLimit = 0;
        program_.forms.show(Id::frmTypingTest);
        program_.forms.unload({Id::frmTimer, Id::frmSimpleKeyBoard});
    } else {
        program_.forms.show(Id::frmSettings);
    }
    program_.forms.hide(Id::frmSelectGame);
    program_.forms.unload(kId);
}

void frmGames::view_hall_of_fame() {
    if (!has_chosen("Please choose a game from the list before viewing its high score table.")) return;
    const auto game = selected_game();
    if (const auto* failure = game.failure()) return program_.tell_unreadable(*failure);
    State& state = program_.state;
    const auto id = as_whole(game.value());
    if (is_typing_test(id)) {
        state.TemplateID = id;
        state.TimeLimit = 0;  // its results belong to no team, so none is asked for
        program_.forms.show(FormId::frmHalloffame);
        program_.forms.load<frmHalloffame>().for_viewing_only();
    } else {
        const auto name = program_.LookupField("templates", "GameName", where_number("Template_ID", id));
        if (const auto* failure = name.failure()) return program_.tell_unreadable(*failure);
        state.TemplateID = id;
        program_.forms.show(FormId::frmSettings);
        state.HallViewOnly = true;
        program_.forms.load<frmSettings>().lblIT.Caption =
            "Please select a team colour to view the high score table for " + as_text(name.value());
    }
    program_.forms.unload(kId);
}

void frmGames::back() {
    using enum FormId;
    program_.forms.unload({kId, frmPictureCard, frmTimer, frmWord, frmWordsUsed, frmSentence});
    program_.forms.show(frmSelectGame);
}

}  // namespace marrowfen
