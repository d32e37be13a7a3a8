#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

#include "platform/forms/look.h"

namespace marrowfen {

/// A team is known by its time limit alone, everywhere but here.
struct Team {
    std::string_view name;
    std::int16_t time_limit;  ///< seconds
    Colour colour;            ///< of the stopwatch's disc
};

constexpr Team kRedTeam{"Red", 60, kRed};
constexpr Team kYellowTeam{"Yellow", 120, kYellow};
constexpr Team kGreenTeam{"Green", 180, kGreen};
constexpr Team kBlueTeam{"Blue", 240, kBlue};
constexpr std::array kTeams{kRedTeam, kYellowTeam, kGreenTeam, kBlueTeam};

/// Empty for a limit that is no team's, as that of a typing test.
constexpr std::string_view team_name(std::int16_t time_limit) {
    const auto* team = std::ranges::find(kTeams, time_limit, &Team::time_limit);
    return team == kTeams.end() ? std::string_view{} : team->name;
}

}  // namespace marrowfen
