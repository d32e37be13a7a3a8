#include <utility>

#include "platform/forms/desktop.h"

namespace marrowfen {

namespace {

Point on(const Form& form, Point on_screen) { return {on_screen.x - form.Left, on_screen.y - form.Top}; }

void run(const std::function<void()>& handler) {
    if (handler) handler();
}

}  // namespace

// A press makes the form active but leaves the stacking alone: the board must stay under its companions, and the
// backdrop under everything, wherever the pupil clicks.
void Desktop::mouse_pressed(Point pointer) {
    const HandlerScope handler_scope(*this);
    Form* form = form_at(pointer);
    if (form == nullptr || drag_ || captured_ != nullptr) return;
    activate(*form);
    if (!is_loaded(*form)) return;
    Control* control = form->control_at(on(*form, pointer));
    if (control == nullptr) return;

    auto* tile = dynamic_cast<PictureBox*>(control);
    if (tile != nullptr && tile->drag_mode == DragMode::Automatic) {
        drag_ = Drag{tile, pointer};
        rearranged();
        return;
    }
    captured_ = control;
    if (control->takes_focus()) give_focus(control);
    run(control->on_mouse_down);
}

void Desktop::mouse_moved(Point pointer) {
    const HandlerScope handler_scope(*this);
    if (drag_) {
        drag_->pointer = pointer;
        dragged_to(pointer);
        return;
    }
    Form* form = form_at(pointer);
    if (captured_ != nullptr || form == nullptr) return;
    if (Control* control = form->control_at(on(*form, pointer))) run(control->on_mouse_move);
}

void Desktop::mouse_released(Point pointer) {
    const HandlerScope handler_scope(*this);
    if (drag_) {
        drop(*drag_->source, pointer);
        return;
    }
    Control* control = std::exchange(captured_, nullptr);
    if (control == nullptr) return;
    const bool clicked = control->bounds().contains(on(control->form(), pointer));
    run(control->on_mouse_up);
    if (clicked && is_loaded(control->form())) run(control->on_click);
}

PictureBox* Desktop::drop_target(Point pointer) const {
    Form* form = form_at(pointer);
    if (form == nullptr) return nullptr;
    auto* target = dynamic_cast<PictureBox*>(form->control_at(on(*form, pointer)));
    return target != nullptr && target->on_drag_drop ? target : nullptr;
}

void Desktop::dragged_to(Point pointer) {
    rearranged();
    PictureBox* target = drop_target(pointer);
    if (target == under_drag_) {
        if (target != nullptr && target->on_drag_over) target->on_drag_over(DragState::Over);
        return;
    }
    PictureBox* left = std::exchange(under_drag_, target);
    if (left != nullptr && left->on_drag_over) left->on_drag_over(DragState::Leave);
    if (target != nullptr && under_drag_ == target && target->on_drag_over) target->on_drag_over(DragState::Enter);
}

void Desktop::drop(PictureBox& source, Point pointer) {
    PictureBox* target = drop_target(pointer);
    end_drag();
    // A tile that has left the board during the drag has nothing to give any more.
    if (target != nullptr && source.Visible && source.Enabled) target->on_drag_drop(source);
}

void Desktop::end_drag() {
    drag_.reset();
    under_drag_ = nullptr;
    rearranged();
}

void Desktop::clicked_into(Control& control) {
    const HandlerScope handler_scope(*this);
    Form& form = control.form();
    if (!is_loaded(form)) return;
    activate(form);
    if (is_loaded(form)) give_focus(&control);
}

void Desktop::text_edited(TextBox& box, std::string text) {
    const HandlerScope handler_scope(*this);
    box.Text = std::move(text);
}

void Desktop::selected(ListBox& list, std::size_t index) {
    const HandlerScope handler_scope(*this);
    list.select(index);
}

void Desktop::double_clicked(ListBox& list) {
    const HandlerScope handler_scope(*this);
    run(list.on_double_click);
}

void Desktop::chosen(ComboBox& combo, std::size_t index) {
    const HandlerScope handler_scope(*this);
    combo.choose(index);
}

}  // namespace marrowfen
