#include "platform/system/seeded_random.h"

#include <chrono>

namespace marrowfen {

void SeededRandom::seed_from_clock() {
    engine_.seed(static_cast<std::mt19937::result_type>(std::chrono::system_clock::now().time_since_epoch().count()));
}

// The upper 24 bits fill a float's mantissa exactly, so that the result never rounds up to 1.
float SeededRandom::next() { return static_cast<float>(engine_() >> 8U) * 0x1p-24F; }

}  // namespace marrowfen
