#include "platform/headless/headless_display.h"

#include <algorithm>

namespace marrowfen {

void HeadlessDisplay::pass(std::chrono::milliseconds time) {
    const auto until = now_ + time;
    while (!due_.empty()) {
        const auto next = std::ranges::min_element(due_, {}, [](const auto& entry) { return entry.second; });
        if (next->second > until) break;
        now_ = next->second;
        Timer& timer = *next->first;
        next->second += timer.interval();
        desktop_->ticked(timer);
    }
    now_ = until;
}

void HeadlessDisplay::during_yield(std::function<void()> event, std::size_t skipped) {
    waiting_.emplace(yields_ + skipped, std::move(event));
}

void HeadlessDisplay::resize(Size screen) {
    screen_ = screen;
    desktop_->screen_changed();
}

void HeadlessDisplay::closed(const Form& form) { std::erase(repainted_, &form); }

void HeadlessDisplay::start(Timer& timer) { due_[&timer] = now_ + timer.interval(); }

void HeadlessDisplay::stop(Timer& timer) { due_.erase(&timer); }

void HeadlessDisplay::run_waiting_events() {
    const std::size_t now = yields_++;
    while (true) {
        const auto event = waiting_.find(now);
        if (event == waiting_.end()) return;
        const auto run = std::move(event->second);
        waiting_.erase(event);
        run();
    }
}

}  // namespace marrowfen
