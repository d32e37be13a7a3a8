#include "platform/forms/picture_button.h"

#include <utility>

namespace marrowfen {

PictureButton::PictureButton(Image& released, Image& pressed, std::function<void()> action) {
    released.on_mouse_down = [&pressed] { pressed.bring_to_front(); };
    released.on_mouse_up = [&released, action = std::move(action)] {
        released.bring_to_front();
        action();
    };
}

PictureSwitch::PictureSwitch(Image& on, Image& off, std::function<void(bool on)> asked_for) : on_(on), off_(off) {
    on.switched = true;
    off.switched = false;
    on.on_click = [asked_for] { asked_for(false); };
    off.on_click = [asked_for = std::move(asked_for)] { asked_for(true); };
}

void PictureSwitch::set(bool on) { (on ? on_ : off_).bring_to_front(); }

}  // namespace marrowfen
