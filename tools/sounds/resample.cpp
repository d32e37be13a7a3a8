#include "resample.h"

#include <algorithm>
#include <numbers>

namespace marrowfen {
namespace {

constexpr double kPi = std::numbers::pi;
constexpr double kReach = 32;  // zero crossings of the kernel to either side

/// A windowed sinc; `distance` is counted in its zero crossings.
double kernel(double distance) {
    if (std::abs(distance) >= kReach) return 0;
    const double angle = kPi * distance / kReach;
    const double window = 0.42 + 0.5 * std::cos(angle) + 0.08 * std::cos(2 * angle);
    return std::abs(distance) < 1e-9 ? 1 : window * std::sin(kPi * distance) / (kPi * distance);
}

}  // namespace

Samples resampled(const Samples& sound, double rate) {
    if (rate == kRate || sound.empty()) return sound;
    const double cutoff = 0.96 * std::min(1.0, kRate / rate);  // of the old rate's half; the rest is the filter's slope
    const double reach = kReach / cutoff;
    const auto last = static_cast<std::ptrdiff_t>(sound.size()) - 1;
    Samples out(samples_in(seconds_of(sound.size(), rate)));
    for (std::size_t i = 0; i < out.size(); ++i) {
        const double place = static_cast<double>(i) * rate / kRate;
        const auto begin = std::max<std::ptrdiff_t>(0, static_cast<std::ptrdiff_t>(std::ceil(place - reach)));
        const auto end = std::min(last, static_cast<std::ptrdiff_t>(std::floor(place + reach)));
        for (std::ptrdiff_t from = begin; from <= end; ++from) {
            const double share = cutoff * kernel(cutoff * (place - static_cast<double>(from)));
            out[i] += sound[static_cast<std::size_t>(from)] * share;
        }
    }
    return out;
}

}  // namespace marrowfen
