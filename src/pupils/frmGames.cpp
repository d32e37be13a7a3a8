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

frmGames::frmGames(Program& program) : ProgramForm(program, {.size = {9735, 8310}}) {
    Snd_On.on_click = [this] { switch_sound(false); };
    sndOff.on_click = [this] { switch_sound(true); };
    Phon_On.on_click = [this] { switch_phonics(false); };
    Phon_OFF.on_click = [this] { switch_phonics(true); };
    List1.on_double_click = [this] { play(); };
    List1.on_enter_key = [this] {
        if (List1.selected_count() != 0) play();
    };
}

void frmGames::load() {
    program_.state.GameRs = program_.open_rows("sortedgames");
    List1.clear();
    RowSet& games = *program_.state.GameRs;
    for (games.move_first(); !games.at_end(); games.move_next()) {
        List1.add(as_text(games.field("GameNumber")) + ". " + as_text(games.field("gamename")));
    }
    switch_sound(program_.state.SoundOn);
    switch_phonics(program_.state.PhonicsOn);
}

void frmGames::switch_sound(bool on) {
    program_.state.SoundOn = on;
    (on ? Snd_On : sndOff).bring_to_front();
}

void frmGames::switch_phonics(bool on) {
    program_.state.PhonicsOn = on;
    (on ? Phon_On : Phon_OFF).bring_to_front();
}

void frmGames::choose_selected_game() {
    program_.state.TemplateID = as_whole(
        program_.LookupField("templates", "Template_id", where_number("GameNumber", game_number(List1.text()))));
}

void frmGames::play() {
    if (List1.selected_count() == 0) {
        program_.tell("Please choose a game from the list.");
        return;
    }
    choose_selected_game();
    State& state = program_.state;
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
    if (List1.selected_count() == 0) {
        program_.tell("Please choose a game from the list before viewing its high score table.");
        return;
    }
    choose_selected_game();
    State& state = program_.state;
    if (is_typing_test(state.TemplateID)) {
        state.TimeLimit = 0;  // its results belong to no team, so none is asked for
        program_.forms.show(FormId::frmHalloffame);
        program_.forms.load<frmHalloffame>().for_viewing_only();
    } else {
        program_.forms.show(FormId::frmSettings);
        state.HallViewOnly = true;
        const Value name = program_.LookupField("templates", "GameName", where_number("Template_ID", state.TemplateID));
        program_.forms.load<frmSettings>().lblIT.Caption =
            "Please select a team colour to view the high score table for " + as_text(name);
    }
    program_.forms.unload(kId);
}

void frmGames::back() {
    using enum FormId;
    program_.forms.unload({kId, frmPictureCard, frmTimer, frmWord, frmWordsUsed, frmSentence});
    program_.forms.show(frmSelectGame);
}

}  // namespace marrowfen
