#pragma once

#include <chrono>
#include <cstddef>
#include <functional>

namespace marrowfen {

class Form;

/// Ticks again and again while it is enabled. It begins disabled, and stops for good when its form goes.
class Timer {
public:
    Timer(Form& form, std::chrono::milliseconds interval, std::function<void()> on_tick);
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;
    ~Timer() = default;

    void enable();  ///< the first tick comes one interval from now; a timer that runs goes on undisturbed
    void disable();
    [[nodiscard]] bool enabled() const { return enabled_; }
    [[nodiscard]] std::chrono::milliseconds interval() const { return interval_; }
    [[nodiscard]] Form& form() const { return form_; }
    [[nodiscard]] std::size_t number() const { return number_; }  ///< on its form, in the order of declaration
    void tick() const { on_tick_(); }

private:
    Form& form_;
    std::chrono::milliseconds interval_;
    std::function<void()> on_tick_;
    const std::size_t number_;
    bool enabled_ = false;
};

}  // namespace marrowfen
