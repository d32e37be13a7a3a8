#pragma once

#include <random>

#include "platform/random.h"

namespace marrowfen {

class SeededRandom final : public Random {
public:
    void seed_from_clock() override;
    [[nodiscard]] float next() override;

private:
    std::mt19937 engine_;
};

}  // namespace marrowfen
