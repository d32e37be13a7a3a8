#pragma once

#include <cmath>
#include <cstddef>
#include <vector>

namespace marrowfen {

/// One channel of sound; full scale is -1 to 1, though work in progress may exceed it.
using Samples = std::vector<double>;

/// Samples a second, of every sound that is made.
inline constexpr double kRate = 44100;

[[nodiscard]] inline std::size_t samples_in(double seconds, double rate = kRate) {
    return static_cast<std::size_t>(std::lround(seconds * rate));
}

[[nodiscard]] inline double seconds_of(std::size_t count, double rate = kRate) {
    return static_cast<double>(count) / rate;
}

[[nodiscard]] inline double from_decibels(double decibels) { return std::pow(10.0, decibels / 20); }

/// A half cosine from 0 to 1 while `part` goes from 0 to 1; stays at the ends beyond them.
[[nodiscard]] inline double raised_cosine(double part) {
    if (part <= 0) return 0;
    if (part >= 1) return 1;
    return 0.5 - 0.5 * std::cos(part * 3.14159265358979323846);
}

}  // namespace marrowfen
