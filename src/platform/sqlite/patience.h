#pragma once

#include <chrono>
#include <functional>

namespace marrowfen {

/// How long the program may stand still while another computer holds the store. All that is asked in one turn, be it
/// one question or twenty, waits out of one stretch of time: whoever finds it used up is refused at once.
class Patience {
public:
    explicit Patience(std::chrono::milliseconds a_turn) : a_turn_(a_turn), left_(a_turn) {}

    void begin_turn();          ///< something new is being handled
    [[nodiscard]] bool wait();  ///< a moment; false: the time is used up

    std::function<void()> on_wait;  ///< called before the first moment of each turn

private:
    std::chrono::milliseconds a_turn_;
    std::chrono::steady_clock::duration left_;
    bool waited_ = false;
};

}  // namespace marrowfen
