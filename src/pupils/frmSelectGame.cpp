#include "pupils/frmSelectGame.h"

namespace marrowfen {

frmSelectGame::frmSelectGame(Program& program)
    : ProgramForm(program, {.size = {11445, 10200}, .key_preview = KeyPreview::Yes}) {
    cmbPupils.on_key_press = [](KeyPress& press) { press.swallow(); };
    cmbPupils.on_click = [this] { pupil_chosen(); };
}

// The list is built anew at every return, so that pupils who came or went meanwhile show up.
void frmSelectGame::activated() {
    cmbPupils.clear();
    const auto pupils = program_.open_rows("SortedPupils");
    if (pupils->at_end()) return;
    pupils->move_first();
    cmbPupils.Text = as_text(pupils->field("Pupilname"));
    for (; !pupils->at_end(); pupils->move_next()) cmbPupils.add(as_text(pupils->field("Pupilname")));
    if (const auto id = program_.state.PupilID; id != 0) {
        cmbPupils.Text = as_text(program_.LookupField("Pupils", "PupilName", where_number("Pupil_ID", id)));
    }
}

void frmSelectGame::key_down(const KeyEvent& event) {
    if (event.key != Key::D || !event.alt) return;
    program_.forms.show(FormId::frmDeletePupils);
    program_.forms.unload(kId);
}

void frmSelectGame::RunGame() {
    if (cmbPupils.Text->empty()) {
        program_.tell("Please choose your name from the list above");
        return;
    }
    const Value id = program_.LookupField("Pupils", "Pupil_ID", where_text("PupilName", cmbPupils.Text.get()));
    if (program_.unreadable()) return;
    program_.state.PupilID = as_whole(id);
    if (program_.state.PupilID == 0) {
        program_.tell("There is no pupil with that name, if you have not played before click new player");
    }
}

void frmSelectGame::pupil_chosen() {
    RunGame();
    if (program_.unreadable()) return;  // nobody plays under a name that was not found
    program_.forms.show(FormId::frmGames);
    program_.forms.hide(kId);
}

void frmSelectGame::new_player() {
    program_.forms.show(FormId::frmNewPupil);
    program_.forms.hide(kId);
}

}  // namespace marrowfen
