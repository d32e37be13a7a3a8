#include "pupils/frmSelectGame.h"

namespace marrowfen {

frmSelectGame::frmSelectGame(Program& program)
    : ReadingForm(program, {.size = {11445, 10200}, .key_preview = KeyPreview::Yes, .spoken = "Your name"}) {
    cmbPupils.on_key_press = [](KeyPress& press) { press.swallow(); };
    cmbPupils.on_click = [this] { pupil_chosen(); };
}

std::optional<StoreFailure> frmSelectGame::read() {
    const auto pupils = program_.open_rows("SortedPupils");
    auto names = lines_of(*pupils, [](const RowSet& row) { return as_text(row.field("Pupilname")); });
    if (const auto* failure = names.failure()) return *failure;
    std::string in_the_box = names.value().empty() ? std::string{} : names.value().front();
    if (const auto id = program_.state.PupilID; id != 0 && !names.value().empty()) {
        const auto name = program_.LookupField("Pupils", "PupilName", where_number("Pupil_ID", id));
        if (const auto* failure = name.failure()) return *failure;
        in_the_box = as_text(name.value());
    }
    cmbPupils.fill(std::move(names).value());
    cmbPupils.Text = in_the_box;
    return std::nullopt;
}

void frmSelectGame::key_down(const KeyEvent& event) {
    if (event.key != Key::D || !event.alt) return;
    program_.forms.show(FormId::frmDeletePupils);
    if (program_.forms.find(FormId::frmDeletePupils) != nullptr) program_.forms.unload(kId);
}

std::optional<StoreFailure> frmSelectGame::RunGame() {
    if (cmbPupils.Text->empty()) {
        program_.tell("Please choose your name from the list above");
        return std::nullopt;
    }
    const auto id = program_.LookupField("Pupils", "Pupil_ID", where_text("PupilName", cmbPupils.Text.get()));
    if (const auto* failure = id.failure()) return *failure;
    program_.state.PupilID = as_whole(id.value());
    if (program_.state.PupilID == 0) {
        program_.tell("There is no pupil with that name, if you have not played before click new player");
    }
    return std::nullopt;
}

void frmSelectGame::pupil_chosen() {
    if (const auto failure = RunGame()) return program_.tell_unreadable(*failure);
    program_.forms.show(FormId::frmGames);
    program_.forms.hide(kId);
    if (program_.state.PupilID != 0) program_.seated();
}

void frmSelectGame::new_player() {
    program_.forms.show(FormId::frmNewPupil);
    program_.forms.hide(kId);
}

}  // namespace marrowfen
