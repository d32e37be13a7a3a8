#include "pupils/frmDeletePupils.h"

#include <vector>

namespace marrowfen {

frmDeletePupils::frmDeletePupils(Program& program)
    : ProgramForm(program, {.size = {6690, 7635}, .spoken = "Remove pupils"}) {}

void frmDeletePupils::load() {
    program_.state.GameRs = program_.open_rows("Pupils");
    const auto pupils = read_pupils();
    if (const auto* failure = pupils.failure()) {
        program_.tell_unreadable(*failure);
        program_.forms.unload(kId);
        return;
    }
    list(pupils.value());
}

Result<std::vector<std::string>> frmDeletePupils::read_pupils() {
    return lines_of(*program_.state.GameRs, [](const RowSet& row) {
        const std::string id = as_text(row.field("Pupil_id"));
        return id + " - " + as_text(row.field("Pupilname"));
    });
}

void frmDeletePupils::list(const std::vector<std::string>& pupils) {
    lbkids.clear();
    for (const std::string& pupil : pupils) lbkids.add(pupil);
}

void frmDeletePupils::delete_pupil() {
    const std::string entry = lbkids.text();
    if (entry.empty()) {
        program_.tell("Please highlight a name from the list before trying to delete.");
        return;
    }
    program_.state.GameRs = program_.open_rows("Pupils");
    RowSet& pupils = *program_.state.GameRs;
    const auto found = pupils.find_first("Pupil_ID=" + entry.substr(0, entry.find('-')));
    if (const auto* failure = found.failure()) return program_.tell_unreadable(*failure);
    if (found.value()) {  // otherwise another computer has removed the pupil already
        if (const auto failure = pupils.delete_row()) {
            program_.tell("The pupil can't be removed just now: " + failure->reason + ". Press Delete to try again.");
            return;
        }
    }
    const auto left = read_pupils();
    if (const auto* failure = left.failure()) {
        auto others = lbkids.entries();
        std::erase(others, entry);
        list(others);
        program_.tell_unreadable(*failure);
        return;
    }
    list(left.value());
}

void frmDeletePupils::close() {
    program_.forms.show(FormId::frmSelectGame);
    program_.forms.unload(kId);
}

}  // namespace marrowfen
