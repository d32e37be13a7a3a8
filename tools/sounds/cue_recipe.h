#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace marrowfen {

/// A value that moves through way-points at even steps of time; in between it moves as the ear counts, by ratio.
class Path {
public:
    explicit Path(std::vector<double> points = {1}) : points_(std::move(points)) {}
    /// `part` from 0 (the beginning) to 1 (the end).
    [[nodiscard]] double at(double part) const;

private:
    std::vector<double> points_;  // each above 0
};

/// One ringing of a struck thing: its pitch, strength and ringing time in shares of those of the layer.
struct Partial {
    double ratio, level, decay;
};

/// One row of a recipe: what sounds when. Times are in seconds.
struct Layer {
    std::string wave;  // "voice", "noise" or the name of a timbre
    double start = 0;
    double length = 0;
    double attack = 0;
    double decay = 0;  // to fall by 60 dB; 0 holds the level to the end
    double level = 0;
    Path hz;

    double voices = 1;        // how many sound together, each a little different
    double rate = 0;          // how often a second each of them strikes; 0: once, for the whole length
    double spread = 0;        // the voices come in within this time
    double vary = 0;          // the pitch of a voice differs by up to so many octaves, up or down
    double release = 0.02;    // fade at the end of each strike
    double swell = 0;         // fade-in of the layer as a whole
    double ebb = 0;           // fade-out of the layer as a whole
    double flutter = 0;       // Hz at which the lips flap
    double detune = 3;        // timbre: cents between the two strings of each partial
    double width = 1;         // noise: octaves
    double rough = 0;         // voice: 0 smooth, 1 all gravel
    double breath = 0;        // voice: air beside the tone
    double edge = 0.5;        // voice: 0 a sigh, 1 brass
    double throat = 1;        // voice: formant bandwidths, as a multiple of a person's
    std::vector<Path> mouth;  // voice: formants in Hz, lowest first
};

struct CueRecipe {
    double length = 0;        // seconds
    double fade = 0.05;       // seconds at the end
    double loudness = 0;      // decibels beside the common loudness
    double room = 0;          // level of the walls' echoes beside the sound itself
    double room_size = 0.02;  // seconds till the last of the early echoes
    std::uint64_t seed = 1;   // of all chance in this sound
    std::map<std::string, std::vector<Partial>> timbres;
    std::vector<Layer> layers;
};

/// Throws Failure with file and line for whatever it can't read.
[[nodiscard]] CueRecipe read_cue_recipe(const std::filesystem::path& file);

}  // namespace marrowfen
