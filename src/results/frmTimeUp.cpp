#include "results/frmTimeUp.h"

namespace marrowfen {

frmTimeUp::frmTimeUp(Program& program) : ProgramForm(program, {.size = {8895, 2715}, .spoken = "Time is up"}) {}

void frmTimeUp::go_on_to(FormId next) {
    program_.forms.show(next);
    program_.forms.unload(kId);
}

}  // namespace marrowfen
