#include "platform/forms/control.h"

#include <algorithm>

#include "platform/forms/form.h"

namespace marrowfen {

Control::Control(Form& form, const Rect& bounds)
    : Left(*this, bounds.left),
      Top(*this, bounds.top),
      Width(*this, bounds.width),
      Height(*this, bounds.height),
      Visible(*this, true),
      Enabled(*this, true),
      Tag(*this, {}),
      Spoken(*this, {}),
      form_(form),
      number_(form.controls_.size()) {
    form.controls_.push_back(this);
}

void Control::bring_to_front() {
    auto& controls = form_.controls_;
    const auto place = std::find(controls.begin(), controls.end(), this);
    if (place + 1 == controls.end()) return;
    std::rotate(place, place + 1, controls.end());
    touched();
}

void Control::touched() {
    const Twips over = overhang();
    form_.changed({Left - over, Top - over, Width + 2 * over, Height + 2 * over});
}

}  // namespace marrowfen
