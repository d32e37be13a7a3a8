#pragma once

#include <functional>

#include "platform/forms/controls.h"

namespace marrowfen {

/// Two pictures on one spot that serve as a button: the pressed one shows while a mouse button is down on the released
/// one, and the action runs when it goes up, wherever the pointer is by then.
class PictureButton {
public:
    PictureButton(Image& released, Image& pressed, std::function<void()> action);
};

}  // namespace marrowfen
