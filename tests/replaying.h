#pragma once

#include <string>
#include <vector>

#include "app/all_forms.h"
#include "platform/system/disk_files.h"
#include "replay/player.h"
#include "rules/game_referee.h"

namespace marrowfen {

/// Without a screen, a store or a sound. Gives what it complained about.
[[nodiscard]] inline std::string replay(const std::vector<std::string>& lines, bool* ended = nullptr) {
    DiskFiles files("/no/such/folder");
    Player player(lines, files, {});
    Desktop desktop(player.display());
    Program program(desktop, player.ports());
    GameReferee referee(program);
    program.referee = &referee;
    define_all_forms(program);
    player.attach(program);
    if (!program.start()) player.started();
    while (player.next_after()) player.step();
    if (ended != nullptr) *ended = player.ended();
    return player.complaint();
}

}  // namespace marrowfen
