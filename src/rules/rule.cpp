#include "rules/rule.h"

#include "core/game_table.h"
#include "core/key_pictures.h"
#include "results/frmTimer.h"

namespace marrowfen {

bool Rule::goes_on(const Form* playing) const {
    return playing != nullptr && program_.forms.find(FormId::frmSimpleKeyBoard) == playing;
}

bool Rule::cue(std::string_view name) {
    const Form* playing = program_.forms.find(FormId::frmSimpleKeyBoard);
    program_.PlayCue(name);
    return goes_on(playing);
}

bool Rule::yield() {
    const Form* playing = program_.forms.find(FormId::frmSimpleKeyBoard);
    program_.desktop.yield();
    return goes_on(playing);
}

bool Rule::cue_and_yield(std::string_view name) { return cue(name) && yield(); }

Picture Rule::small_letter(std::string_view tag) const {
    return Picture::file(program_.path(key_picture(CapKind::Tile, kLower, tag)));
}

void Rule::end_game() {
    FormSet& forms = program_.forms;
    forms.show(FormId::frmScore);
    if (auto* stopwatch = forms.find<frmTimer>()) stopwatch->KeyTimer.disable();
    program_.state.KeysDone = 0;
    program_.state.PanelsDone = 0;
    forms.unload({FormId::frmSimpleKeyBoard, FormId::frmTimer});
    if (const Game* game = find_game(program_.state.TemplateID)) {
        for (const FormId companion : game->companions) forms.unload(companion);
    }
}

}  // namespace marrowfen
