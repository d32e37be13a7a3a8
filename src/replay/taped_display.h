#pragma once

#include <functional>
#include <utility>

#include "platform/forms/display.h"

namespace marrowfen {

/// Passes everything on to a screen, if there is one, and knows in which yield the program is.
class TapedDisplay : public Display {
public:
    TapedDisplay(Display* world, Size screen) : world_(world), screen_(screen) {}

    [[nodiscard]] std::size_t yield_now() const { return now_; }              ///< counted from 1; 0: in none
    [[nodiscard]] bool take_dirty() { return std::exchange(dirty_, false); }  ///< whether something looks otherwise
    [[nodiscard]] bool ended() const { return ended_; }

    [[nodiscard]] Size screen() const override { return screen_; }
    void changed(const Form& form, const Rect& part) override {
        dirty_ = true;
        if (world_) world_->changed(form, part);
    }
    void rearranged() override {
        dirty_ = true;
        if (world_) world_->rearranged();
    }
    void closed(const Form& form) override {
        dirty_ = true;
        if (world_) world_->closed(form);
    }
    void repaint_now(const Form& form) override {
        if (world_) world_->repaint_now(form);
    }
    void start(Timer& timer) override {
        if (world_) world_->start(timer);
    }
    void stop(Timer& timer) override {
        if (world_) world_->stop(timer);
    }
    void run_waiting_events() override {
        const std::size_t before = std::exchange(now_, ++yields_);
        if (world_) world_->run_waiting_events();
        in_yield(now_);
        now_ = before;
    }
    void last_form_closed() override {
        ended_ = true;
        if (world_) world_->last_form_closed();
    }

protected:
    virtual void in_yield(std::size_t /*number*/) {}
    Display* world_;

private:
    Size screen_;
    std::size_t yields_ = 0;
    std::size_t now_ = 0;
    bool dirty_ = false;
    bool ended_ = false;
};

}  // namespace marrowfen
