#include "platform/forms/form.h"

#include <algorithm>
#include <ranges>

#include "platform/forms/desktop.h"

namespace marrowfen {

Form::Form(Desktop& desktop, const FormDesign& design)
    : Left(*this, 0),
      Top(*this, 0),
      Width(*this, design.size.width),
      Height(*this, design.size.height),
      desktop_(desktop),
      design_(design) {}

void Form::place() {
    const Size screen = desktop_.screen();
    switch (design_.placement) {
        case Placement::Maximised:
            Left = Top = 0;
            Width = screen.width;
            Height = screen.height;
            break;
        case Placement::Centred:
            Left = (screen.width - Width) / 2;
            Top = (screen.height - Height) / 2;
            break;
        case Placement::Own:
            break;
    }
}

Control* Form::control_at(Point on_form) const {
    const auto from_top = controls_ | std::views::reverse;
    const auto hit = std::ranges::find_if(from_top, [&](const Control* control) {
        return control->Visible && control->takes_mouse() && control->bounds().contains(on_form);
    });
    return hit != from_top.end() && (*hit)->Enabled ? *hit : nullptr;
}

void Form::touched() { desktop_.rearranged(); }

void Form::changed(const Rect& part) { desktop_.changed(*this, part); }

Control* Form::first_to_take_focus() const {
    const auto first = std::ranges::find_if(controls_, [](const Control* control) {
        return control->takes_focus() && control->Visible && control->Enabled;
    });
    return first == controls_.end() ? nullptr : *first;
}

}  // namespace marrowfen
