#include "platform/forms/desktop.h"

#include <algorithm>
#include <ranges>
#include <utility>

namespace marrowfen {

Desktop::Desktop(Display& display) : display_(display) {}

Desktop::~Desktop() = default;

Form& Desktop::load(std::unique_ptr<Form> form) {
    const HandlerScope handler_scope(*this);
    Form& loaded = *forms_.emplace_back(std::move(form));
    loaded.place();
    loaded.load();
    return loaded;
}

void Desktop::show(Form& form) {
    const HandlerScope handler_scope(*this);
    if (!is_loaded(form)) return;
    form.visible_ = true;
    raise(form);
    activate(form);
    if (std::exchange(form.displayed_, true) || !is_loaded(form)) return;
    form.resized();
}

void Desktop::hide(Form& form) {
    const HandlerScope handler_scope(*this);
    if (!form.visible_) return;
    form.visible_ = false;
    if (active_ == &form) activate_next();
    rearranged();
}

void Desktop::unload(Form& form) {
    const HandlerScope handler_scope(*this);
    const auto place = std::ranges::find(forms_, &form, &std::unique_ptr<Form>::get);
    if (place == forms_.end()) return;
    for (Timer* timer : form.timers_) timer->disable();
    if (captured_ != nullptr && &captured_->form() == &form) captured_ = nullptr;
    if (under_drag_ != nullptr && &under_drag_->form() == &form) under_drag_ = nullptr;
    if (drag_ && &drag_->source->form() == &form) end_drag();
    form.visible_ = false;
    pending_deletion_.push_back(std::move(*place));
    forms_.erase(place);
    display_.closed(form);
    rearranged();
    if (active_ == &form) {
        active_ = nullptr;
        activate_next();
    }
    if (forms_.empty()) display_.last_form_closed();
}

void Desktop::raise(Form& form) {
    const auto place = std::ranges::find(forms_, &form, &std::unique_ptr<Form>::get);
    if (place == forms_.end()) return;
    std::rotate(place, place + 1, forms_.end());
    std::ranges::stable_partition(
        forms_, [](const std::unique_ptr<Form>& other) { return other->design().level == Level::Ordinary; });
    rearranged();
}

// Two forms that both refuse to lose the active state would hand it to and fro for ever. The first to take it back
// keeps it: that is the message, which must be answered.
void Desktop::activate(Form& form) {
    constexpr int kMostReactivations = 2;
    if (active_ == &form || !is_loaded(form) || reactivations_ >= kMostReactivations) return;
    Form* before = std::exchange(active_, &form);
    if (form.focus_ == nullptr) form.focus_ = form.first_to_take_focus();
    rearranged();
    if (before != nullptr) {
        ++reactivations_;
        if (before->focus_ != nullptr && before->focus_->on_lost_focus) before->focus_->on_lost_focus();
        before->deactivated();
        --reactivations_;
    }
    if (active_ == &form) form.activated();
}

void Desktop::activate_next() {
    const auto from_top = forms_ | std::views::reverse;
    const auto next = std::ranges::find_if(from_top, [](const auto& form) { return form->visible_; });
    if (next == from_top.end()) {
        active_ = nullptr;
    } else {
        activate(**next);
    }
}

void Desktop::set_focus(Control& control) {
    const HandlerScope handler_scope(*this);
    Form& form = control.form();
    if (!is_loaded(form) || !form.visible_) return;
    give_focus(&control);
    if (active_ == &form) return;
    activate(form);
    if (active_ == &form) raise(form);
}

void Desktop::give_focus(Control* control) {
    Form& form = control->form();
    Control* before = std::exchange(form.focus_, control);
    if (before == control) return;
    rearranged();
    if (before != nullptr && before->on_lost_focus && active_ == &form) before->on_lost_focus();
}

void Desktop::repaint_now(Form& form) {
    if (is_loaded(form)) display_.repaint_now(form);
}

void Desktop::yield() {
    const HandlerScope handler_scope(*this);
    display_.run_waiting_events();
}

bool Desktop::is_loaded(const Form& form) const {
    return std::ranges::find(forms_, &form, &std::unique_ptr<Form>::get) != forms_.end();
}

bool Desktop::is_live(const Control* control) const { return control != nullptr && is_loaded(control->form()); }

std::vector<Form*> Desktop::visible_forms() const {
    std::vector<Form*> visible;
    for (const auto& form : forms_) {
        if (form->visible_) visible.push_back(form.get());
    }
    return visible;
}

Form* Desktop::form_at(Point on_screen) const {
    const auto from_top = forms_ | std::views::reverse;
    const auto hit = std::ranges::find_if(
        from_top, [&](const auto& form) { return form->visible_ && form->bounds().contains(on_screen); });
    return hit == from_top.end() ? nullptr : hit->get();
}

bool Desktop::key_down(const KeyEvent& event) {
    const HandlerScope handler_scope(*this);
    Form* form = active_;
    if (form == nullptr) return false;
    if (form->design().key_preview == KeyPreview::Yes) form->key_down(event);
    if (active_ != form) return true;  // the form that the key was for has gone
    auto* list = dynamic_cast<ListBox*>(form->focus_);
    if (event.key != Key::Enter || list == nullptr || !list->on_enter_key) return false;
    list->on_enter_key();
    return true;
}

bool Desktop::key_pressed(char32_t character) {
    const HandlerScope handler_scope(*this);
    KeyPress press{character};
    Form* form = active_;
    if (form == nullptr) return false;
    if (form->design().key_preview == KeyPreview::Yes) form->key_pressed(press);
    Control* focus = form->focus_;
    if (!press.swallowed() && is_live(focus) && focus->on_key_press) focus->on_key_press(press);
    return press.swallowed() || active_ != form;
}

void Desktop::key_released(const KeyEvent& event) {
    const HandlerScope handler_scope(*this);
    if (active_ == nullptr || active_->focus_ == nullptr || !active_->focus_->on_key_up) return;
    active_->focus_->on_key_up(event);
}

void Desktop::ticked(Timer& timer) {
    const HandlerScope handler_scope(*this);
    if (timer.enabled()) timer.tick();
}

void Desktop::screen_changed() {
    const HandlerScope handler_scope(*this);
    // The board's companions take their places from the board, which lies below them.
    std::vector<Form*> forms(forms_.size());
    std::ranges::transform(forms_, forms.begin(), &std::unique_ptr<Form>::get);
    for (Form* form : forms) {
        if (!is_loaded(*form)) continue;
        const Size before{form->Width, form->Height};
        form->place();
        if (form->displayed_ && Size{form->Width, form->Height} != before) form->resized();
    }
    rearranged();
}

void Desktop::changed(const Form& form, const Rect& part) {
    if (form.visible_) display_.changed(form, part);
}

void Desktop::rearranged() { display_.rearranged(); }

void Desktop::timer_changed(Timer& timer) {
    if (timer.enabled()) {
        display_.start(timer);
    } else {
        display_.stop(timer);
    }
}

}  // namespace marrowfen
