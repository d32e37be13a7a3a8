#include "synth.h"

#include <array>
#include <numbers>

#include "dice.h"
#include "filters.h"
#include "room.h"
#include "voice.h"

namespace marrowfen {
namespace {

constexpr double kTau = 2 * std::numbers::pi;
constexpr double kHighestPartial = 10000;  // Hz; above it a partial would only be sharp
constexpr double kSixtyDecibels = 6.91;    // as a power of e

/// One of the many that sound together in a layer.
struct Player {
    double pitch = 1, size = 1, level = 1;
};

Player someone(const Layer& layer, Dice& dice) {
    if (layer.voices <= 1) return {};
    return {std::exp2(layer.vary * dice.between(-1, 1)), dice.between(0.9, 1.12), dice.between(0.35, 1)};
}

double fallen(double seconds, double decay) { return decay > 0 ? std::exp(-kSixtyDecibels * seconds / decay) : 1; }

/// One of the two nearly equal pitches at which a partial of a struck thing rings.
struct Mode {
    double side, level;
};

// Each partial is a pair a hair apart, which makes it shimmer as struck things do. Equal ones would die and come back.
constexpr std::array kPair{Mode{-0.5, 0.72}, Mode{0.5, 0.28}};

Samples ring(const Layer& layer, const std::vector<Partial>& timbre, std::size_t length, double pitch, Dice& dice) {
    Samples sound(length);
    for (const Partial& partial : timbre) {
        for (const Mode& mode : kPair) {
            const double ratio = partial.ratio * pitch * std::exp2(mode.side * layer.detune / 1200);
            double turns = dice.between(0, 1);
            for (std::size_t i = 0; i < length; ++i) {
                const double hz = layer.hz.at(static_cast<double>(i) / static_cast<double>(length)) * ratio;
                turns += hz / kRate;
                if (hz > kHighestPartial) continue;
                const double fall = fallen(seconds_of(i), layer.decay * partial.decay);
                sound[i] += mode.level * partial.level * fall * std::sin(kTau * turns);
            }
        }
    }
    return sound;
}

/// Two bands in a row, so that little is left of the noise beside the wanted one.
Samples hiss(const Layer& layer, std::size_t length, double pitch, Dice& dice) {
    BandPass first;
    BandPass second;
    Samples sound(length);
    for (std::size_t i = 0; i < length; ++i) {
        const double hz = layer.hz.at(static_cast<double>(i) / static_cast<double>(length)) * pitch;
        first.tune(hz, layer.width);
        second.tune(hz, layer.width);
        sound[i] = second.pass(first.pass(dice.noise()));
    }
    return sound;
}

/// One strike: the bare wave, then its coming and going.
Samples strike(const CueRecipe& recipe, const Layer& layer, double seconds, const Player& player, Dice& dice) {
    const std::size_t length = samples_in(seconds);
    Samples sound;
    bool falls = true;
    if (layer.wave == "voice") {
        sound = sing(layer, length, player.pitch, player.size, dice);
    } else if (layer.wave == "noise") {
        sound = hiss(layer, length, player.pitch, dice);
    } else {
        sound = ring(layer, recipe.timbres.at(layer.wave), length, player.pitch, dice);
        falls = false;  // its partials do so one by one
    }
    for (std::size_t i = 0; i < length; ++i) {
        const double now = seconds_of(i);
        double gain = player.level;
        if (layer.attack > 0) gain *= raised_cosine(now / layer.attack);
        if (layer.release > 0) gain *= raised_cosine((seconds - now) / layer.release);
        if (layer.flutter > 0) gain *= 0.55 - 0.45 * std::cos(kTau * layer.flutter * now);
        if (falls) gain *= fallen(now, layer.decay);
        sound[i] *= gain;
    }
    return sound;
}

void add(const Samples& sound, double at_seconds, double level, Samples& onto) {
    const std::size_t begin = samples_in(at_seconds);
    if (onto.size() < begin + sound.size()) onto.resize(begin + sound.size());
    for (std::size_t i = 0; i < sound.size(); ++i) onto[begin + i] += level * sound[i];
}

Samples play_layer(const CueRecipe& recipe, const Layer& layer, Dice& dice) {
    Samples all;
    for (int voice = 0; voice < static_cast<int>(layer.voices); ++voice) {
        const Player player = someone(layer, dice);
        const double entry = dice.between(0, layer.spread);
        if (layer.rate <= 0) {
            add(strike(recipe, layer, layer.length, player, dice), entry, 1, all);
            continue;
        }
        const double own_rate = layer.rate * dice.between(0.85, 1.15);
        double now = entry + dice.between(0, 1 / own_rate);
        while (now < layer.length) {
            const double force = dice.between(0.6, 1);
            add(strike(recipe, layer, layer.decay, player, dice), now, force, all);
            now += dice.between(0.9, 1.1) / own_rate;
        }
    }
    const double seconds = seconds_of(all.size());
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (layer.swell > 0) all[i] *= raised_cosine(seconds_of(i) / layer.swell);
        if (layer.ebb > 0) all[i] *= raised_cosine((seconds - seconds_of(i)) / layer.ebb);
    }
    return all;
}

}  // namespace

Samples play(const CueRecipe& recipe) {
    Samples sound;
    std::uint64_t seed = recipe.seed * 1000;
    for (const Layer& layer : recipe.layers) {
        Dice dice(seed++);  // its own, so that tuning one layer leaves the others as they were
        add(play_layer(recipe, layer, dice), layer.start, layer.level, sound);
    }
    sound.resize(samples_in(recipe.length));
    if (recipe.room > 0) add_room(sound, recipe.room, recipe.room_size);
    return sound;
}

}  // namespace marrowfen
