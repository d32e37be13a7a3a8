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

/// Two pictures on one spot, of which one shows that something is on and the other that it is off. A click on the one
/// that shows asks for the other state; who is asked sets it.
class PictureSwitch {
public:
    PictureSwitch(Image& on, Image& off, std::function<void(bool on)> asked_for);
    void set(bool on);

private:
    Image& on_;
    Image& off_;
};

}  // namespace marrowfen
