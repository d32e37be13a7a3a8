#include "pupils/frmDeletePupils.h"

namespace marrowfen {

frmDeletePupils::frmDeletePupils(Program& program) : ProgramForm(program, {.size = {6690, 7635}}) {}

void frmDeletePupils::load() {
    program_.state.GameRs = program_.open_rows("Pupils");
    list_pupils();
}

void frmDeletePupils::list_pupils() {
    lbkids.clear();
    RowSet& pupils = *program_.state.GameRs;
    if (pupils.row_count() == 0) return;
    for (pupils.move_first(); !pupils.at_end(); pupils.move_next()) {
        lbkids.add(as_text(pupils.field("Pupil_id")) + " - " + as_text(pupils.field("Pupilname")));
    }
}

void frmDeletePupils::delete_pupil() {
    const std::string entry = lbkids.text();
    if (entry.empty()) {
        program_.tell("Please highlight a name from the list before trying to delete.");
        return;
    }
    program_.state.GameRs = program_.open_rows("Pupils");
    RowSet& pupils = *program_.state.GameRs;
    pupils.find_first("Pupil_ID=" + entry.substr(0, entry.find('-')));
    if (!pupils.no_match()) {  // otherwise another computer has removed the pupil already
        if (const auto failure = pupils.delete_row()) {
            program_.tell("The pupil can't be removed just now: " + failure->reason + ". Press Delete to try again.");
            return;
        }
    }
    lbkids.clear_selection();
    list_pupils();
}

void frmDeletePupils::close() {
    program_.forms.show(FormId::frmSelectGame);
    program_.forms.unload(kId);
}

}  // namespace marrowfen
