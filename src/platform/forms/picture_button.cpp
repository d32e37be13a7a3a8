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

}  // namespace marrowfen
