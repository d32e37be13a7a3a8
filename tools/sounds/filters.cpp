#include "filters.h"

#include <algorithm>
#include <array>
#include <numbers>

namespace marrowfen {
namespace {

constexpr double kPi = std::numbers::pi;
constexpr double kHighestCentre = 0.45 * kRate;

/// A filter of two poles and two zeros; `b` and `a` as in every textbook, with a[0] at 1.
struct Biquad {
    std::array<double, 3> b;
    std::array<double, 2> a;

    void run(Samples& sound) const {
        double first = 0;
        double second = 0;
        for (double& sample : sound) {
            const double in = sample;
            sample = b[0] * in + first;
            first = b[1] * in - a[0] * sample + second;
            second = b[2] * in - a[1] * sample;
        }
    }
};

}  // namespace

void BandPass::tune(double hz, double width) {
    g_ = std::tan(kPi * std::min(hz, kHighestCentre) / kRate);
    const double reach = std::exp2(width);
    damping_ = (reach - 1) / std::sqrt(reach);
}

double BandPass::pass(double in) {
    const double high = (in - (g_ + damping_) * first_ - second_) / (1 + g_ * (g_ + damping_));
    const double band = g_ * high + first_;
    const double low = g_ * band + second_;
    first_ = g_ * high + band;
    second_ = g_ * band + low;
    return band * damping_;
}

void Formant::tune(double hz, double bandwidth_hz) {
    const double radius = std::exp(-kPi * bandwidth_hz / kRate);
    c_ = -radius * radius;
    b_ = 2 * radius * std::cos(2 * kPi * std::min(hz, kHighestCentre) / kRate);
    a_ = 1 - b_ - c_;
}

double Formant::pass(double in) {
    const double out = a_ * in + b_ * last_ + c_ * before_;
    before_ = last_;
    last_ = out;
    return out;
}

LowPass::LowPass(double hz) : share_(1 - std::exp(-2 * kPi * hz / kRate)) {}

double LowPass::pass(double in) {
    last_ += share_ * (in - last_);
    return last_;
}

void high_pass(Samples& sound, double hz) {
    const double w = 2 * kPi * hz / kRate;
    const double alpha = std::sin(w) / std::numbers::sqrt2;
    const double cosine = std::cos(w);
    const double a0 = 1 + alpha;
    const double edge = (1 + cosine) / 2 / a0;
    Biquad{{edge, -2 * edge, edge}, {-2 * cosine / a0, (1 - alpha) / a0}}.run(sound);
}

void high_shelf(Samples& sound, double hz, double decibels) {
    const double gain = from_decibels(decibels / 2);
    const double w = 2 * kPi * hz / kRate;
    const double cosine = std::cos(w);
    const double slope = std::sqrt(gain) * std::sin(w) * std::numbers::sqrt2;
    const double a0 = (gain + 1) - (gain - 1) * cosine + slope;
    Biquad{{gain * ((gain + 1) + (gain - 1) * cosine + slope) / a0, -2 * gain * ((gain - 1) + (gain + 1) * cosine) / a0,
            gain * ((gain + 1) + (gain - 1) * cosine - slope) / a0},
           {2 * ((gain - 1) - (gain + 1) * cosine) / a0, ((gain + 1) - (gain - 1) * cosine - slope) / a0}}
        .run(sound);
}

}  // namespace marrowfen
