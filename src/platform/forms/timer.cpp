#include "platform/forms/timer.h"

#include "platform/forms/desktop.h"

namespace marrowfen {

Timer::Timer(Form& form, std::chrono::milliseconds interval, std::function<void()> on_tick)
    : form_(form), interval_(interval), on_tick_(std::move(on_tick)), number_(form.timers_.size()) {
    form.timers_.push_back(this);
}

void Timer::enable() {
    if (enabled_ || !form_.desktop().is_loaded(form_)) return;
    enabled_ = true;
    form_.desktop().timer_changed(*this);
}

void Timer::disable() {
    if (!enabled_) return;
    enabled_ = false;
    form_.desktop().timer_changed(*this);
}

}  // namespace marrowfen
