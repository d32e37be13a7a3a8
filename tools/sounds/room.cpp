#include "room.h"

#include <array>

#include "filters.h"

namespace marrowfen {
namespace {

struct Echo {
    double way;  // share of the longest
    double level;
};

// No two ways stand in a simple ratio, or the room would ring at a pitch of its own.
constexpr std::array kEchoes{Echo{0.137, 0.62},  Echo{0.211, -0.55}, Echo{0.293, 0.47},  Echo{0.379, 0.42},
                             Echo{0.467, -0.38}, Echo{0.571, 0.31},  Echo{0.683, -0.27}, Echo{0.797, 0.22},
                             Echo{0.889, 0.19},  Echo{1.0, -0.16}};
constexpr double kWallsDullAbove = 3500;                      // Hz
constexpr std::array kAllPassDelays{0.0031, 0.0047, 0.0071};  // seconds

/// Blurs the echoes as furniture and children do; the level of every pitch stays as it was.
void all_pass(Samples& sound, double seconds) {
    constexpr double kShare = 0.5;
    const std::size_t delay = samples_in(seconds);
    Samples ring(delay);
    for (std::size_t i = 0; i < sound.size(); ++i) {
        double& kept = ring[i % delay];
        const double in = sound[i] + kShare * kept;
        sound[i] = kept - kShare * in;
        kept = in;
    }
}

}  // namespace

void add_room(Samples& sound, double level, double size) {
    LowPass wall(kWallsDullAbove);
    Samples dulled(sound.size());
    for (std::size_t i = 0; i < sound.size(); ++i) dulled[i] = wall.pass(sound[i]);

    Samples echoes(sound.size());
    for (const Echo& echo : kEchoes) {
        const std::size_t delay = samples_in(echo.way * size);
        for (std::size_t i = delay; i < sound.size(); ++i) echoes[i] += echo.level * dulled[i - delay];
    }
    for (const double seconds : kAllPassDelays) all_pass(echoes, seconds);
    for (std::size_t i = 0; i < sound.size(); ++i) sound[i] += level * echoes[i];
}

}  // namespace marrowfen
