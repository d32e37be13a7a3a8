#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "platform/forms/display.h"
#include "platform/forms/form.h"

namespace marrowfen {

/// The window system of the program inside its one real window: stacking, activation, focus, hit testing, mouse
/// capture, automatic drag, timers, yields and the life of forms. Everything happens on one thread.
///
/// Handlers re-enter: a form may be unloaded while one of its own handlers runs. It leaves the screen at once, and the
/// object lives until the last handler on the stack has returned.
class Desktop {
public:
    explicit Desktop(Display& display);
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;
    ~Desktop();

    // What forms ask for.
    Form& load(std::unique_ptr<Form> form);  ///< runs its load handler; nothing comes on the screen yet
    void show(Form& form);    ///< to the top of its level and active; showing a form that stands there raises it
    void hide(Form& form);    ///< it keeps all its state
    void unload(Form& form);  ///< a form that is not loaded (any more) is left alone
    void set_focus(Control& control);  ///< also makes its form the active one and raises it
    void repaint_now(Form& form);
    void yield();  ///< lets waiting events run: anything may have happened when it returns
    [[nodiscard]] bool is_loaded(const Form& form) const;
    [[nodiscard]] Size screen() const { return display_.screen(); }

    // What the adapter reads.
    struct Drag {
        PictureBox* source = nullptr;
        Point pointer;
    };
    [[nodiscard]] std::vector<Form*> visible_forms() const;  ///< from the bottom to the top
    [[nodiscard]] Form* active() const { return active_; }
    [[nodiscard]] const std::optional<Drag>& drag() const { return drag_; }
    [[nodiscard]] Form* form_at(Point on_screen) const;

    // Raw input from the adapter; points are twips on the screen. The key calls tell whether the key was swallowed.
    void mouse_pressed(Point pointer);
    void mouse_moved(Point pointer);
    void mouse_released(Point pointer);
    [[nodiscard]] bool key_down(const KeyEvent& event);
    [[nodiscard]] bool key_pressed(char32_t character);
    void key_released(const KeyEvent& event);
    void clicked_into(Control& control);  ///< a real widget took the press: it is active and has the focus now
    void text_edited(TextBox& box, std::string text);
    void selected(ListBox& list, std::size_t index);
    void double_clicked(ListBox& list);
    void chosen(ComboBox& combo, std::size_t index);
    void ticked(Timer& timer);
    void screen_changed();  ///< another resolution: every form finds its place anew

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

    void activate(Form& form);
    void activate_next();
    void raise(Form& form);
    void give_focus(Control* control);
    [[nodiscard]] PictureBox* drop_target(Point pointer) const;
    void dragged_to(Point pointer);
    void drop(PictureBox& source, Point pointer);
    void end_drag();
    [[nodiscard]] bool is_live(const Control* control) const;

    Display& display_;
    std::vector<std::unique_ptr<Form>> forms_;             // loaded ones, from the bottom to the top
    std::vector<std::unique_ptr<Form>> pending_deletion_;  // unloaded, but a handler may still be inside
    Form* active_ = nullptr;
    Control* captured_ = nullptr;
    std::optional<Drag> drag_;
    PictureBox* under_drag_ = nullptr;
    int handlers_ = 0;
    int reactivations_ = 0;
};

}  // namespace marrowfen
