#pragma once

#include <optional>
#include <vector>

#include "platform/forms/control.h"

namespace marrowfen {

class Desktop;
class Form;
class Mouse;
class PictureBox;

/// The ring round the control that Space and Enter press, for hands that use no mouse. It shows from the first Tab,
/// Escape or F-key on, and hides when somebody types or presses something: who never asks for it never meets it.
///
/// Tab goes through all that takes a press in reading order, with the keys of a board and its tiles as one stop each;
/// arrows go to what lies there. F1 to F12 go to the first to the twelfth button of the screen, Escape to the way out,
/// and Escape once more takes it. A tile that is pressed is taken up, and put down on the key that is pressed next.
class Ring {
public:
    Ring(Desktop& desktop, Mouse& mouse) : desktop_(desktop), mouse_(mouse) {}

    [[nodiscard]] Control* at() const { return shown_ ? at_ : nullptr; }  ///< nullptr: it is hidden
    /// Whether the control takes a press now, by a key as by the mouse.
    [[nodiscard]] bool is_stop(Control& control) const;
    /// All that takes a press now, in reading order.
    [[nodiscard]] std::vector<Control*> stops() const;
    void go_to(Control& stop);

    enum class Stroke : std::uint8_t { Fresh, Repeated };
    /// Whose the key is, if it means anything here; none: it is for whom it would be without a ring.
    std::optional<Taker> take(const KeyDown& key, Stroke stroke);
    void hide();
    /// The screen may have changed: what is ringed must still be there.
    void settle();
    void forget(const Form& form);

private:
    enum class Way : std::int8_t { Back = -1, On = 1 };
    void step(Way way);
    void move(Key arrow);
    [[nodiscard]] bool leave();
    void go_to_button(int number);
    [[nodiscard]] std::optional<Taker> press(const KeyDown& key, Stroke stroke);
    void act(Control& control);
    void put_back();
    [[nodiscard]] Control* entry() const;
    [[nodiscard]] Control* entry_of_group(Control& member, const std::vector<Control*>& stops) const;
    [[nodiscard]] Control* only_button() const;
    [[nodiscard]] Control* way_out() const;

    Desktop& desktop_;
    Mouse& mouse_;
    Control* at_ = nullptr;
    bool shown_ = false;
};

}  // namespace marrowfen
