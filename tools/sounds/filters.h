#pragma once

#include "samples.h"

namespace marrowfen {

/// Lets a band around a pitch through at its own level. The pitch may move from sample to sample.
class BandPass {
public:
    /// `width` in octaves, above 0.
    void tune(double hz, double width);
    [[nodiscard]] double pass(double in);

private:
    double g_ = 0, damping_ = 1;
    double first_ = 0, second_ = 0;
};

/// One resonance of a throat: lifts a narrow band, leaves what lies below as it is, and dulls what lies above.
class Formant {
public:
    void tune(double hz, double bandwidth_hz);
    [[nodiscard]] double pass(double in);

private:
    double a_ = 1, b_ = 0, c_ = 0;
    double last_ = 0, before_ = 0;
};

/// Dulls a sound a little more with every octave above `hz`.
class LowPass {
public:
    explicit LowPass(double hz);
    [[nodiscard]] double pass(double in);

private:
    double share_;
    double last_ = 0;
};

/// Takes away what lies below about `hz`.
void high_pass(Samples& sound, double hz);

/// Turns the highs above about `hz` down by `decibels` (below 0).
void high_shelf(Samples& sound, double hz, double decibels);

}  // namespace marrowfen
