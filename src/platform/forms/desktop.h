#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "platform/forms/display.h"
#include "platform/forms/form.h"
#include "platform/forms/keyboard.h"
#include "platform/forms/mouse.h"
#include "platform/forms/ring.h"

namespace marrowfen {

class Letters;

/// The window system of the program inside its one real window: stacking, activation, focus, input, timers, yields and
/// the life of forms. Everything happens on one thread.
///
/// Handlers re-enter: a form may be unloaded while one of its own handlers runs. It leaves the screen at once, and the
/// object lives until the last handler on the stack has returned.
class Desktop final : public InputSink {
public:
    explicit Desktop(Display& display);
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;
    ~Desktop() override;

    // What forms ask for.
    Form& load(std::unique_ptr<Form> form);  ///< runs its load handler; nothing comes on the screen yet
    void show(Form& form);    ///< to the top of its level and active; showing a form that stands there raises it
    void hide(Form& form);    ///< it keeps all its state
    void unload(Form& form);  ///< a form that is not loaded (any more) is left alone
    void set_focus(Control& control);  ///< also makes its form the active one and raises it
    void repaint_now(Form& form);
    void yield();  ///< lets waiting events run: anything may have happened when it returns
    [[nodiscard]] bool is_loaded(const Form& form) const;
    [[nodiscard]] Size screen() const { return screen_; }

    // What the adapter reads.
    [[nodiscard]] std::vector<Form*> visible_forms() const;  ///< from the bottom to the top
    [[nodiscard]] Form* active() const { return active_; }
    [[nodiscard]] const std::optional<Mouse::Drag>& drag() const { return mouse_.drag(); }
    [[nodiscard]] Form* form_at(Point on_screen) const;
    [[nodiscard]] const Ring& ring() const { return ring_; }
    [[nodiscard]] Form* message() const;                               ///< on the screen; nullptr: none is
    [[nodiscard]] ComboBox* dropped_list() const { return dropped_; }  ///< nullptr: none has dropped down

    /// All that happens from outside comes in here.
    Taker handle(const InputEvent& event) override;
    std::function<void()> on_close_request;  ///< of the window system. The program ends when it unloads the last form

    // What controls and timers tell.
    void changed(const Form& form, const Rect& part);
    void rearranged();
    void timer_changed(Timer& timer);

private:
    /// While one of these stands on the stack, no unloaded form dies.
    class HandlerScope {
    public:
        explicit HandlerScope(Desktop& desktop) : desktop_(desktop) { ++desktop_.handlers_; }
        HandlerScope(const HandlerScope&) = delete;
        HandlerScope& operator=(const HandlerScope&) = delete;
        ~HandlerScope() {
            if (--desktop_.handlers_ == 0) desktop_.pending_deletion_.clear();
        }

    private:
        Desktop& desktop_;
    };

    friend class Keyboard;
    friend class Mouse;
    friend class Ring;
    Taker take(const InputEvent& event);
    Taker take(const TextEdit& edit);
    Taker take(const RowChoice& choice);
    Taker take(const ListDrop& drop);
    Taker take(const FocusRequest& request);
    Taker take(const Tick& tick);
    Taker take(const ScreenSize& size);
    Taker take(const CloseRequest& request);

    void activate(Form& form);
    void activate_next();
    void raise(Form& form);
    void give_focus(Control* control);
    void settle_letters();

    Display& display_;
    std::vector<std::unique_ptr<Form>> forms_;             // loaded ones, from the bottom to the top
    std::vector<std::unique_ptr<Form>> pending_deletion_;  // unloaded, but a handler may still be inside
    Form* active_ = nullptr;
    ComboBox* dropped_ = nullptr;
    Letters* letters_ = nullptr;  // on the screen, for who has no keyboard
    Size screen_;
    Keyboard keyboard_{*this};
    Mouse mouse_{*this};
    Ring ring_{*this, mouse_};
    int handlers_ = 0;
};

}  // namespace marrowfen
