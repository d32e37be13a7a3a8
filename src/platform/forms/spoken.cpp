#include "platform/forms/spoken.h"

#include <algorithm>

#include "platform/forms/reading_order.h"
#include "platform/match.h"

namespace marrowfen {

namespace {

bool acts(const Control& control) { return control.on_mouse_down || control.on_mouse_up || control.on_click; }

// Buttons and switches are two pictures on one spot, of which the lower one is not to be seen.
bool is_covered(const Control& picture) {
    const auto& controls = picture.form().controls();
    const auto above = std::ranges::find(controls, &picture) + 1;
    return std::any_of(above, controls.end(), [&](Control* other) {
        return as<Image>(other) != nullptr && other->Visible && other->bounds().contains(picture.bounds().centre());
    });
}

std::string without_margin(const std::string& text) {
    const auto begin = text.find_first_not_of(" \n");
    if (begin == std::string::npos) return {};
    return text.substr(begin, text.find_last_not_of(" \n") + 1 - begin);
}

// The text on the left of a field, or above it, says what it is for.
std::string label_of(const Control& field) {
    std::string text;
    for (Control* control : field.form().controls()) {
        if (control == &field) break;
        if (const auto* label = as<Label>(control)) text = label->Caption;
    }
    return text;
}

std::string written_on(Control& control) {
    return std::visit(Match{
                          [](const Label* label) { return label->Caption.get(); },
                          [](const Image*) { return std::string{}; },
                          [](const PictureBox* box) { return box->Tag.get(); },
                          [](const Shape*) { return std::string{}; },
                          [](const Dial*) { return std::string{}; },
                          [](const TextBox* box) { return box->is_field() ? label_of(*box) : box->Text.get(); },
                          [](const ListBox* list) { return label_of(*list); },
                          [](const ComboBox* combo) { return label_of(*combo); },
                      },
                      control.any());
}

std::string seconds_left(const Dial& dial) {
    const int left = dial.SecondsLeft->left;
    return dial.SecondsLeft->of == 0 ? ""
                                     : ", " + std::to_string(left) + (left == 1 ? " second" : " seconds") + " left";
}

}  // namespace

Part part_of(Control& control) {
    constexpr Twips kSmallest = 8 * kTwipsPerPixel;
    if (!control.Visible || control.Width < kSmallest || control.Height < kSmallest) return Part::None;
    const auto text = [&] { return spoken_name(control).empty() ? Part::None : Part::Text; };
    return std::visit(
        Match{
            [&](const Label* label) { return acts(*label) ? Part::Button : text(); },
            [&](const Image* image) {
                if (image->Spoken->empty() || is_covered(*image)) return Part::None;
                if (image->switched) return Part::Switch;
                return acts(*image) ? Part::Button : Part::Picture;
            },
            [](const PictureBox* box) { return box->drag_mode == DragMode::Automatic ? Part::Tile : Part::Key; },
            [](const Shape*) { return Part::None; },
            [](const Dial*) { return Part::Watch; },
            [&](const TextBox* box) { return box->is_field() ? Part::Field : text(); },
            [](const ListBox*) { return Part::Field; },
            [](const ComboBox*) { return Part::Field; },
        },
        control.any());
}

std::string spoken_name(Control& control) {
    std::string name = control.Spoken->empty() ? without_margin(written_on(control)) : control.Spoken.get();
    if (const auto* dial = as<Dial>(&control)) name += seconds_left(*dial);
    return name;
}

std::vector<Control*> spoken_parts(const Form& form) {
    std::vector<Control*> parts;
    std::ranges::copy_if(form.controls(), std::back_inserter(parts),
                         [](Control* control) { return part_of(*control) != Part::None; });
    sort_for_reading(parts);
    return parts;
}

}  // namespace marrowfen
