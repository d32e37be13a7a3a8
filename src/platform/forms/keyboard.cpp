#include "platform/forms/keyboard.h"

#include "platform/forms/desktop.h"

namespace marrowfen {

namespace {

// Alt and the key of the window system make commands, not text; Ctrl with Alt is how some keyboards write their third
// level.
char32_t written_by(const KeyDown& key) {
    const bool is_command = key.command || (key.alt && !key.control);
    return is_command ? 0 : key.character;
}

char32_t digit_on(const KeyDown& key) {
    constexpr std::uint32_t kOne = 10;
    constexpr std::uint32_t kZero = 19;
    if (key.shift || key.code < kOne || key.code > kZero) return 0;
    return key.code == kZero ? U'0' : U'1' + (key.code - kOne);
}

}  // namespace

Taker Keyboard::field_or_nobody() const {
    const Form* form = desktop_.active();
    return form != nullptr && form->focus() != nullptr && form->focus()->is_field() ? Taker::Field : Taker::Nobody;
}

Taker Keyboard::handle(const KeyDown& key, std::chrono::milliseconds time) {
    constexpr std::chrono::milliseconds kOneMoment{2};
    desktop_.mouse_.key_struck();
    Form* form = desktop_.active();
    const bool repeats = key.repeats || (key.code != 0 && key.code == released_ && time - released_at_ <= kOneMoment);
    if (!repeats) pressed_on_ = form;
    if (form == nullptr || pressed_on_ != form) return Taker::Nobody;
    const char32_t character = written_by(key);
    // A list that has dropped down takes the keys that move in it and close it, but no command of the forms.
    const bool is_command = key.key == Key::D && key.alt;
    if (desktop_.dropped_list() != nullptr && character < U' ' && !is_command) return Taker::Field;

    if (const auto taker = desktop_.ring_.take(key, repeats ? Ring::Stroke::Repeated : Ring::Stroke::Fresh)) {
        return *taker;
    }
    if (character >= U' ') desktop_.ring_.hide();
    if (form->design().key_preview == KeyPreview::Yes) form->key_down({key.key, key.alt});
    if (desktop_.active() != form) return Taker::Nobody;  // the form that the key was for has gone
    auto* list = as<ListBox>(form->focus());
    if (key.key == Key::Enter && list != nullptr && list->on_enter_key) {
        list->on_enter_key();
        return Taker::Nobody;
    }
    return character != 0 && is_taken({character, digit_on(key)}) ? Taker::Nobody : field_or_nobody();
}

bool Keyboard::is_taken(KeyPress press) {
    Form* form = desktop_.active();
    if (form->design().key_preview == KeyPreview::Yes) form->key_pressed(press);
    if (desktop_.active() != form) return true;
    Control* focus = form->focus();
    if (!press.swallowed() && focus != nullptr && focus->on_key_press) focus->on_key_press(press);
    return press.swallowed() || desktop_.active() != form;
}

Taker Keyboard::handle(const KeyUp& key, std::chrono::milliseconds time) {
    if (key.repeats) return Taker::Nobody;
    released_ = key.code;
    released_at_ = time;
    const Form* form = desktop_.active();
    if (form == nullptr || form->focus() == nullptr) return Taker::Nobody;
    const Taker taker = field_or_nobody();
    if (form->focus()->on_key_up) form->focus()->on_key_up({key.key, key.alt});
    return taker;
}

}  // namespace marrowfen
