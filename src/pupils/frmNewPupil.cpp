#include "pupils/frmNewPupil.h"

#include <utility>

#include "platform/text/letters.h"

namespace marrowfen {

frmNewPupil::frmNewPupil(Program& program) : ProgramForm(program, {.size = {6585, 3855}, .spoken = "New player"}) {
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
    if (!can_be_seen(name)) {
        program_.tell("Please type in your name");
        return;
    }
    const auto namesake = program_.LookupField("Pupils", "Pupil_ID", where_text("PupilName", name));
    if (const auto* failure = namesake.failure()) return program_.tell_unreadable(*failure);
    if (as_whole(namesake.value()) != 0) {
        program_.tell("This pupil has already been entered");
        return;
    }
    if (const auto failure = add(name)) {
        program_.tell("Your name can't be kept just now: " + failure->reason + ". Press Next to try again.");
        return;
    }
    program_.forms.show(FormId::frmGames);
    program_.forms.unload(kId);
    program_.seated();
}

std::optional<StoreFailure> frmNewPupil::add(const std::string& name) {
    const auto pupils = program_.open_rows("Pupils");
    if (auto failure = pupils->add_row()) return failure;
    pupils->set_field("Pupilname", name);
    const auto before = std::exchange(program_.state.PupilID, as_whole(pupils->field("Pupil_id")));
    auto failure = pupils->update();
    if (failure) program_.state.PupilID = before;
    return failure;
}

}  // namespace marrowfen
