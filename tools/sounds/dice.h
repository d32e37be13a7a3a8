#pragma once

#include <cstdint>

namespace marrowfen {

/// Chance that falls the same way on every computer, so that a build can be repeated bit by bit.
/// (The distributions of the standard library differ from one library to the next.)
class Dice {
public:
    explicit Dice(std::uint64_t seed) : state_(seed * 0x9E3779B97F4A7C15U + 0x632BE59BD9B4E019U) {}

    /// From `low` up to, never quite, `high`.
    [[nodiscard]] double between(double low, double high) {
        return low + (high - low) * (static_cast<double>(next() >> 11U) * 0x1p-53);
    }

    /// One sample of white noise.
    [[nodiscard]] double noise() { return between(-1, 1); }

private:
    std::uint64_t next() {  // splitmix64
        state_ += 0x9E3779B97F4A7C15U;
        std::uint64_t mixed = state_;
        mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
        mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
        return mixed ^ (mixed >> 31U);
    }

    std::uint64_t state_;
};

}  // namespace marrowfen
