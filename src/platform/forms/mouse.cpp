#include "platform/forms/mouse.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "platform/forms/desktop.h"

namespace marrowfen {

namespace {

Point on(const Form& form, Point on_screen) { return {on_screen.x - form.Left, on_screen.y - form.Top}; }

void run(const std::function<void()>& handler) {
    if (handler) handler();
}

}  // namespace

bool Mouse::repeats_last(const MousePress& press, std::chrono::milliseconds time) const {
    return press.button == last_.button && time - std::max(last_.time, last_.released) <= kDoubleClickTime &&
           std::abs(press.at.x - last_.at.x) <= kDoubleClickDistance &&
           std::abs(press.at.y - last_.at.y) <= kDoubleClickDistance;
}

Taker Mouse::handle(const MousePress& press, std::chrono::milliseconds time) {
    if (held_ != MouseButton::None && held_ != press.button && press.held.holds(held_)) return taker_;
    if (held_ != MouseButton::None) let_go(press.at, time);  // its release got lost

    held_ = press.button;
    touched_ = press.by_touch;
    taker_ = Taker::Nobody;
    ComboBox* dropped = desktop_.dropped_list();
    Form* form = dropped != nullptr ? &dropped->form() : desktop_.form_at(press.at);
    desktop_.ring_.hide();
    if (form == nullptr) return taker_;
    const bool repeats = repeats_last(press, time);
    if (repeats && form != last_.form) return taker_;

    Control* control = dropped != nullptr ? dropped : form->control_at(on(*form, press.at));
    // The second press of a double click on the box would close the list that the first one has opened.
    if (dropped != nullptr && repeats && !last_.row && !press.row) return taker_;
    const bool second = repeats && control == last_.control && press.row && press.row == last_.row;
    last_ = {press.button, press.at, time, time, form, control, second ? std::nullopt : press.row};
    if (dropped != nullptr) return taker_ = Taker::Field;
    if (drag_ && is_carrying()) {
        PictureBox* carried = drag_->source;
        const bool put = drop_target(press.at) != nullptr;
        drop(*carried, press.at);
        if (put || control == carried) return Taker::Forms;
        if (!desktop_.is_loaded(*form)) return Taker::Nobody;
    }
    return begin(press, *form, second);
}

// A press makes the form active but leaves the stacking alone: the board must stay under its companions, and the
// backdrop under everything, wherever the pupil clicks.
Taker Mouse::begin(const MousePress& press, Form& form, bool second) {
    taker_ = Taker::Forms;
    desktop_.activate(form);
    if (!desktop_.is_loaded(form)) return taker_;
    Control* control = form.control_at(on(form, press.at));
    if (control == nullptr) return taker_;
    if (control->is_field()) return taker_ = press_field(press, *control, second);

    auto* tile = as<PictureBox>(control);
    if (tile != nullptr && tile->drag_mode == DragMode::Automatic) {
        drag_ = Drag{tile, press.at};
        desktop_.rearranged();
        return taker_;
    }
    captured_ = control;
    if (control->takes_focus()) desktop_.give_focus(control);
    run(control->on_mouse_down);
    return Taker::Forms;
}

// Under a message a field takes nothing: what is chosen there could not be seen.
Taker Mouse::press_field(const MousePress& press, Control& field, bool second) {
    const Form& form = field.form();
    if (desktop_.active() != &form) return Taker::Nobody;
    desktop_.give_focus(&field);
    if (!desktop_.is_loaded(form) || desktop_.active() != &form) return Taker::Nobody;
    auto* list = as<ListBox>(&field);
    if (list == nullptr || !press.row) return Taker::Field;
    if (*press.row < list->entries().size()) list->select(*press.row);
    if (second) run(list->on_double_click);
    return desktop_.is_loaded(form) && desktop_.active() == &form ? Taker::Field : Taker::Nobody;
}

Taker Mouse::handle(const MouseMove& move, std::chrono::milliseconds time) {
    if (held_ != MouseButton::None && !move.held.holds(held_)) let_go(move.at, time);
    if (held_ != MouseButton::None && taker_ == Taker::Field) return taker_;
    if (drag_) {
        drag_->pointer = move.at;
        drag_to(move.at);
        return Taker::Forms;
    }
    if (held_ != MouseButton::None || desktop_.dropped_list() != nullptr) {
        return held_ != MouseButton::None ? taker_ : Taker::Field;
    }
    const Form* form = desktop_.form_at(move.at);
    Control* control = form == nullptr ? nullptr : form->control_at(on(*form, move.at));
    if (control == nullptr) return Taker::Forms;
    const bool is_field = control->is_field();
    run(control->on_mouse_move);
    return is_field ? Taker::Field : Taker::Forms;
}

Taker Mouse::handle(const MouseRelease& release, std::chrono::milliseconds time) {
    if (release.button != held_) return taker_;
    const Taker taker = taker_;
    let_go(release.at, time);
    return taker;
}

// A wheel that turns by chance must not choose another pupil.
Taker Mouse::handle(const WheelTurn& turn) {
    if (desktop_.dropped_list() != nullptr) return Taker::Field;
    const Form* form = desktop_.form_at(turn.at);
    return form != nullptr && as<ListBox>(form->control_at(on(*form, turn.at))) != nullptr ? Taker::Field
                                                                                           : Taker::Nobody;
}

void Mouse::let_go(Point pointer, std::chrono::milliseconds time) {
    held_ = MouseButton::None;
    const Taker taker = std::exchange(taker_, Taker::Nobody);
    if (taker != Taker::Nobody) last_.released = time;
    if (taker != Taker::Forms) return;
    if (drag_) {
        // Let go where it lies it stays in the hand, for hands that can't hold a button and move.
        const Control& tile = *drag_->source;
        drag_->carried = tile.Visible && tile.Enabled && tile.bounds().contains(on(tile.form(), pointer));
        if (!drag_->carried) drop(*drag_->source, pointer);
        return;
    }
    Control* control = std::exchange(captured_, nullptr);
    if (control == nullptr) return;
    const bool clicked = control->bounds().contains(on(control->form(), pointer));
    run(control->on_mouse_up);
    if (clicked && desktop_.is_loaded(control->form())) run(control->on_click);
}

void Mouse::forget(const Form& form) {
    if (last_.form == &form) last_.form = nullptr, last_.control = nullptr;  // another may come to lie at its address
    if (captured_ != nullptr && &captured_->form() == &form) captured_ = nullptr;
    if (under_drag_ != nullptr && &under_drag_->form() == &form) under_drag_ = nullptr;
    if (drag_ && &drag_->source->form() == &form) end_drag();
}

void Mouse::press_by_key(Control& control) {
    if (held_ != MouseButton::None) return;
    Form& form = control.form();
    desktop_.activate(form);
    if (!desktop_.is_loaded(form)) return;
    captured_ = &control;
    if (control.takes_focus()) desktop_.give_focus(&control);
    run(control.on_mouse_down);
    if (std::exchange(captured_, nullptr) == nullptr) return;  // its form has gone
    run(control.on_mouse_up);
    if (desktop_.is_loaded(form)) run(control.on_click);
}

void Mouse::take_up(PictureBox& tile) {
    const Point centre = tile.bounds().centre();
    drag_ = Drag{&tile, {tile.form().Left + centre.x, tile.form().Top + centre.y}, true};
    desktop_.rearranged();
}

void Mouse::carry_to(Point pointer) {
    if (!drag_) return;
    drag_->pointer = pointer;
    drag_to(pointer);
}

void Mouse::put_down() {
    if (drag_) drop(*drag_->source, drag_->pointer);
}

void Mouse::put_back() {
    PictureBox* left = under_drag_;
    end_drag();
    if (left != nullptr && left->on_drag_over) left->on_drag_over(DragState::Leave);
}

PictureBox* Mouse::key_under(Point pointer) const {
    const Form* form = desktop_.form_at(pointer);
    if (form == nullptr) return nullptr;
    auto* target = as<PictureBox>(form->control_at(on(*form, pointer)));
    return target != nullptr && target->on_drag_drop ? target : nullptr;
}

PictureBox* Mouse::drop_target(Point pointer) const {
    PictureBox* target = key_under(pointer);
    if (target != nullptr) return target;
    const Form* form = desktop_.form_at(pointer);
    if (form == nullptr) return nullptr;
    const Point at = on(*form, pointer);
    const auto beside = [](Twips first, Twips last, Twips p) {
        return p < first ? first - p : p > last ? p - last : 0;
    };
    Twips nearest = kNearMiss + 1;
    for (Control* control : form->controls()) {
        const Rect bounds = control->bounds();
        const Twips away =
            std::max(beside(bounds.left, bounds.right() - 1, at.x), beside(bounds.top, bounds.bottom() - 1, at.y));
        auto* key = as<PictureBox>(control);
        if (away > nearest || key == nullptr || !key->on_drag_drop || !key->Visible || !key->Enabled) continue;
        target = away == nearest ? nullptr : key;  // as near to two keys as can be: neither was meant
        nearest = away;
    }
    return target;
}

void Mouse::drag_to(Point pointer) {
    desktop_.rearranged();
    PictureBox* target = drop_target(pointer);
    if (target == under_drag_) {
        if (target != nullptr && target->on_drag_over) target->on_drag_over(DragState::Over);
        return;
    }
    PictureBox* left = std::exchange(under_drag_, target);
    if (left != nullptr && left->on_drag_over) left->on_drag_over(DragState::Leave);
    if (target != nullptr && under_drag_ == target && target->on_drag_over) target->on_drag_over(DragState::Enter);
}

void Mouse::drop(PictureBox& source, Point pointer) {
    PictureBox* target = drop_target(pointer);
    PictureBox* left = under_drag_;
    end_drag();
    // A tile that has left the board during the drag has nothing to give any more: it only leaves.
    const bool is_given = target != nullptr && source.Visible && source.Enabled;
    if (left != nullptr && left->on_drag_over && !(is_given && left == target)) left->on_drag_over(DragState::Leave);
    if (is_given && desktop_.is_loaded(target->form())) target->on_drag_drop(source);
}

void Mouse::end_drag() {
    drag_.reset();
    under_drag_ = nullptr;
    desktop_.rearranged();
}

}  // namespace marrowfen
