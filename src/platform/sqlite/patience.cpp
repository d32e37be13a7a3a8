#include "platform/sqlite/patience.h"

#include <algorithm>
#include <thread>
#include <utility>

namespace marrowfen {

void Patience::begin_turn() {
    left_ = a_turn_;
    waited_ = false;
}

bool Patience::wait() {
    using Clock = std::chrono::steady_clock;
    constexpr Clock::duration kMoment = std::chrono::milliseconds(20);
    if (left_ <= Clock::duration::zero()) return false;
    if (!std::exchange(waited_, true) && on_wait) on_wait();
    const auto before = Clock::now();
    std::this_thread::sleep_for(std::min(kMoment, left_));
    left_ -= Clock::now() - before;
    return true;
}

}  // namespace marrowfen
