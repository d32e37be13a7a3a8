#include "platform/forms/desktop.h"

#include <algorithm>
#include <ranges>
#include <utility>

#include "platform/forms/letters.h"
#include "platform/match.h"

namespace marrowfen {

Desktop::Desktop(Display& display) : display_(display), screen_(display.screen()) {}

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
    if (letters_ != nullptr && &letters_->box().form() == &form) unload(*std::exchange(letters_, nullptr));
    const auto place = std::ranges::find(forms_, &form, &std::unique_ptr<Form>::get);
    if (place == forms_.end()) return;
    for (Timer* timer : form.timers_) timer->disable();
    mouse_.forget(form);
    keyboard_.forget(form);
    ring_.forget(form);
    if (dropped_ != nullptr && &dropped_->form() == &form) dropped_ = nullptr;
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
    std::ranges::stable_sort(forms_, {}, [](const std::unique_ptr<Form>& other) { return other->design().level; });
    rearranged();
}

// Nothing takes the active state from a message, not even a form that shows itself over it: it must be answered.
void Desktop::activate(Form& form) {
    const Form* on_top = message();
    const bool is_kept = on_top != nullptr && on_top != &form;
    if (active_ == &form || !is_loaded(form) || !form.design().takes_over || is_kept) return;
    Form* before = std::exchange(active_, &form);
    if (form.focus_ == nullptr) form.focus_ = form.first_to_take_focus();
    rearranged();
    if (before != nullptr) {
        if (before->focus_ != nullptr && before->focus_->on_lost_focus) before->focus_->on_lost_focus();
        before->deactivated();
    }
    if (active_ == &form) form.activated();
}

Form* Desktop::message() const {
    const auto found = std::ranges::find_if(
        forms_, [](const auto& form) { return form->visible_ && form->design().level == Level::Message; });
    return found == forms_.end() ? nullptr : found->get();
}

void Desktop::activate_next() {
    const auto from_top = forms_ | std::views::reverse;
    const auto next =
        std::ranges::find_if(from_top, [](const auto& form) { return form->visible_ && form->design().takes_over; });
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

Taker Desktop::handle(const InputEvent& event) {
    const HandlerScope handler_scope(*this);
    const Taker taker = take(event);
    settle_letters();
    ring_.settle();
    return taker;
}

// Letters come when a box is to be filled by somebody who last used a finger or a pen, and go with that.
void Desktop::settle_letters() {
    constexpr Twips kNarrowest = 30 * kTwipsPerPixel;  // a narrower box only holds the focus
    const auto takes_letters = [](const TextBox* box) {
        return box != nullptr && box->is_field() && box->Visible && box->Enabled && box->Width >= kNarrowest;
    };
    auto* box = mouse_.is_touched() && active_ != nullptr ? as<TextBox>(active_->focus()) : nullptr;
    if (!takes_letters(box)) box = nullptr;
    if (letters_ != nullptr && &letters_->box() != box) unload(*std::exchange(letters_, nullptr));
    if (box == nullptr || letters_ != nullptr) return;
    auto letters = std::make_unique<Letters>(*this, *box);
    letters_ = letters.get();
    show(load(std::move(letters)));
}

Taker Desktop::take(const InputEvent& event) {
    return std::visit(Match{
                          [&](const MousePress& press) { return mouse_.handle(press, event.time); },
                          [&](const MouseMove& move) { return mouse_.handle(move, event.time); },
                          [&](const MouseRelease& release) { return mouse_.handle(release, event.time); },
                          [&](const WheelTurn& turn) { return mouse_.handle(turn); },
                          [&](const KeyDown& key) { return keyboard_.handle(key, event.time); },
                          [&](const KeyUp& key) { return keyboard_.handle(key, event.time); },
                          [&](const auto& other) { return take(other); },
                      },
                      event.what);
}

Taker Desktop::take(const TextEdit& edit) {
    if (is_loaded(edit.box->form())) edit.box->edit(edit.text);
    return Taker::Forms;
}

Taker Desktop::take(const RowChoice& choice) {
    if (auto* list = as<ListBox>(choice.list)) list->select(choice.row);
    if (auto* combo = as<ComboBox>(choice.list)) combo->choose(choice.row);
    return Taker::Forms;
}

Taker Desktop::take(const ListDrop& drop) {
    if (drop.open) {
        dropped_ = drop.list;
    } else if (dropped_ == drop.list) {
        dropped_ = nullptr;
    }
    return Taker::Forms;
}

Taker Desktop::take(const FocusRequest& request) {
    if (is_loaded(request.control->form()) && ring_.is_stop(*request.control)) ring_.go_to(*request.control);
    return Taker::Forms;
}

Taker Desktop::take(const Tick& tick) {
    if (tick.timer->enabled()) tick.timer->tick();
    return Taker::Forms;
}

Taker Desktop::take(const CloseRequest&) {
    if (on_close_request) on_close_request();
    return Taker::Forms;
}

Taker Desktop::take(const ScreenSize& size) {
    screen_ = size.screen;
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
    return Taker::Forms;
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
