#include "pupils/frmNewPupil.h"

#include <utility>

namespace marrowfen {

frmNewPupil::frmNewPupil(Program& program) : ProgramForm(program, {.size = {6585, 3855}}) {
    txtpupilname.on_key_press = [this](KeyPress& press) {
        if (press.code != U'\r') return;
        press.swallow();
        next();
    };
}

void frmNewPupil::back() {
    program_.forms.show(FormId::frmSelectGame);
    program_.forms.unload(kId);
}

void frmNewPupil::next() {
    const std::string name = txtpupilname.Text;
    if (name.empty()) {
        program_.tell("Please type in your name");
        return;
    }
    if (as_whole(program_.LookupField("Pupils", "Pupil_ID", where_text("PupilName", name))) != 0) {
        program_.tell("This pupil has already been entered");
        return;
    }
    const auto pupils = program_.open_rows("Pupils");
    pupils->add_row();
    pupils->set_field("Pupilname", name);
    const auto before = std::exchange(program_.state.PupilID, as_whole(pupils->field("Pupil_id")));
    if (const auto failure = pupils->update()) {
        program_.state.PupilID = before;
        program_.tell("Your name can't be kept just now: " + failure->reason + ". Press Next to try again.");
        return;
    }
    program_.forms.show(FormId::frmGames);
    program_.forms.unload(kId);
}

}  // namespace marrowfen
