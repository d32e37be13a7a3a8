#include "platform/forms/reading_order.h"

#include <algorithm>

#include "platform/forms/form.h"

namespace marrowfen {

Rect on_screen(const Control& control) {
    const Rect bounds = control.bounds();
    return {control.form().Left + bounds.left, control.form().Top + bounds.top, bounds.width, bounds.height};
}

void sort_for_reading(std::vector<Control*>& controls) {
    std::ranges::stable_sort(controls, {}, [](const Control* c) { return on_screen(*c).top; });
    for (auto row = controls.begin(); row != controls.end();) {
        const Twips bottom = on_screen(**row).bottom();
        const auto end =
            std::find_if(row, controls.end(), [&](const Control* c) { return on_screen(*c).centre().y >= bottom; });
        std::stable_sort(row, end,
                         [](const Control* a, const Control* b) { return on_screen(*a).left < on_screen(*b).left; });
        row = end;
    }
}

}  // namespace marrowfen
