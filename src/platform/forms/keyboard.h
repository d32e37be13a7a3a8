#pragma once

#include "platform/forms/input.h"

namespace marrowfen {

class Desktop;
class Form;

/// What a key means: first it goes down for the active form, then its character is for that form and the control with
/// the focus. What a key that is held down repeats is for the form that it was pressed on, and for no other. Some
/// window systems tell a repeat as a release and a press at one moment, which no finger can do.
class Keyboard {
public:
    explicit Keyboard(Desktop& desktop) : desktop_(desktop) {}
    Taker handle(const KeyDown& key, std::chrono::milliseconds time);
    Taker handle(const KeyUp& key, std::chrono::milliseconds time);
    void forget(const Form& form) {
        if (pressed_on_ == &form) pressed_on_ = nullptr;
    }

private:
    [[nodiscard]] bool is_taken(KeyPress press);
    [[nodiscard]] Taker field_or_nobody() const;

    Desktop& desktop_;
    const Form* pressed_on_ = nullptr;  // only compared
    std::uint32_t released_ = 0;        // the code of the key that came up last
    std::chrono::milliseconds released_at_{};
};

}  // namespace marrowfen
