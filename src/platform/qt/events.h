#pragma once

#include <QElapsedTimer>
#include <QInputEvent>
#include <algorithm>
#include <chrono>
#include <optional>
#include <utility>

#include "platform/forms/input.h"

namespace marrowfen {

/// Hands over what happens, each with its time. What the window system tells bears the time at which the user did it,
/// however late it is looked at; the rest has the time of now on the same clock.
class Events {
public:
    explicit Events(InputSink& sink) : sink_(sink) { since_start_.start(); }
    Taker tell(InputEvent::What what, const QInputEvent& source) {
        if (source.timestamp() == 0) return tell(std::move(what));  // a screen reader has held it, and handed it on
        const std::chrono::milliseconds stamp(source.timestamp());
        // The two clocks may part: that of a thin client stands still while it sleeps, and that of X11 begins anew
        // after 49 days. Without a new beginning everything would happen at one time from then on, as one endless
        // double click.
        constexpr std::chrono::seconds kApart{10};
        const auto now = elapsed();
        if (!offset_ || std::chrono::abs(stamp - *offset_ - now) > kApart) offset_ = stamp - now;
        return hand_over(stamp - *offset_, std::move(what));
    }
    Taker tell(InputEvent::What what) { return hand_over(elapsed(), std::move(what)); }

private:
    [[nodiscard]] std::chrono::milliseconds elapsed() const {
        return std::chrono::milliseconds(since_start_.elapsed());
    }
    Taker hand_over(std::chrono::milliseconds time, InputEvent::What what) {
        last_ = std::max(last_, time);
        return sink_.handle({last_, std::move(what)});
    }

    InputSink& sink_;
    QElapsedTimer since_start_;
    std::optional<std::chrono::milliseconds> offset_;  // not known before the first input
    std::chrono::milliseconds last_{};
};

}  // namespace marrowfen
