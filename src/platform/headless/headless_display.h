#pragma once

#include <functional>
#include <map>
#include <vector>

#include "platform/forms/desktop.h"

namespace marrowfen {

/// A screen that nobody sees. Time passes when it is told to, and what shall happen inside a yield is laid down before.
class HeadlessDisplay final : public Display {
public:
    explicit HeadlessDisplay(Size screen = {15360, 11520}) : screen_(screen) {}
    void attach(InputSink& sink) { sink_ = &sink; }

    /// Lets time pass in milliseconds; timers tick in the order in which they fall due.
    void pass(std::chrono::milliseconds time);
    /// Lets time pass in which no timer comes nearer to its tick.
    void idle(std::chrono::milliseconds time);
    Taker tell(InputEvent::What what) { return sink_->handle({now_, std::move(what)}); }

    // A mouse and a keyboard, and what a toolkit's own fields make of them.
    Taker press(Point at, std::optional<std::size_t> row = {}, MouseButton button = MouseButton::Left);
    Taker touch(Point at);
    Taker move(Point at) { return tell(MouseMove{at, held_}); }
    Taker release(Point at, MouseButton button = MouseButton::Left);
    void click(Point at, std::optional<std::size_t> row = {});
    /// Drops the list down and clicks on a row of it.
    void pick(ComboBox& list, std::size_t row, Point at);
    /// Down and up. If it turns out to be for a text box, the box gets the character.
    void strike(const KeyDown& key, const Desktop& desktop);

    /// Runs once, inside the yield that comes after `skipped` others.
    void during_yield(std::function<void()> event, std::size_t skipped = 0);
    void resize(Size screen);

    [[nodiscard]] std::size_t yields() const { return yields_; }
    [[nodiscard]] bool has_pending_events() const { return !waiting_.empty(); }
    [[nodiscard]] bool ended() const { return ended_; }
    [[nodiscard]] const std::vector<const Form*>& repainted() const { return repainted_; }

    [[nodiscard]] Size screen() const override { return screen_; }
    void changed(const Form&, const Rect&) override {}
    void rearranged() override {}
    void closed(const Form& form) override;
    void repaint_now(const Form& form) override { repainted_.push_back(&form); }
    void start(Timer& timer) override;
    void stop(Timer& timer) override;
    void run_waiting_events() override;
    void last_form_closed() override { ended_ = true; }

private:
    Size screen_;
    InputSink* sink_ = nullptr;
    std::chrono::milliseconds now_{0};
    std::map<Timer*, std::chrono::milliseconds> due_;
    MouseButtons held_;
    std::multimap<std::size_t, std::function<void()>> waiting_;  // by the number of the yield
    std::vector<const Form*> repainted_;
    std::size_t yields_ = 0;
    bool ended_ = false;
};

}  // namespace marrowfen
