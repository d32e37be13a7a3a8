#pragma once

#include <cmath>
#include <cstdint>

namespace marrowfen {

/// The one stream of random numbers.
class Random {
public:
    virtual ~Random() = default;
    virtual void seed_from_clock() = 0;
    [[nodiscard]] virtual float next() = 0;  ///< from 0 up to but not including 1

    /// A whole number from 1 to n, each with equal chance.
    [[nodiscard]] int draw(int n) {
        const int drawn = static_cast<int>(std::floor(static_cast<float>(n) * next())) + 1;
        return drawn > n ? n : drawn;  // a float just below 1 times n can round up to n
    }
};

}  // namespace marrowfen
