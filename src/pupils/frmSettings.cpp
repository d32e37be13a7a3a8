#include "pupils/frmSettings.h"

#include "results/frmHalloffame.h"
#include "results/frmTimer.h"

namespace marrowfen {

frmSettings::frmSettings(Program& program) : ProgramForm(program, {.size = {10605, 6990}, .spoken = "Team colour"}) {
    Image1.on_mouse_down = [this] { redDe.bring_to_front(), join(kRedTeam); };
    Image3.on_mouse_down = [this] { YellowDe.bring_to_front(), join(kYellowTeam); };
    Image4.on_mouse_down = [this] { GreenDe.bring_to_front(), join(kGreenTeam); };
    Image2.on_mouse_down = [this] { BlueDe.bring_to_front(), join(kBlueTeam); };
}

void frmSettings::join(const Team& team) {
    State& state = program_.state;
    if (state.HallViewOnly) {
        state.TimeLimit = team.time_limit;
        program_.forms.show(FormId::frmHalloffame);
        program_.forms.load<frmHalloffame>().for_viewing_only();
        program_.forms.unload(kId);
        return;
    }
    // The board unloads this form while it loads; from here on only the stopwatch and the shared state are touched.
    Program& program = program_;
    program.forms.show(FormId::frmSimpleKeyBoard);
    if (auto* stopwatch = program.forms.find<frmTimer>()) stopwatch->FillColor = team.colour;
    program.state.TimeLimit = team.time_limit;
}

}  // namespace marrowfen
