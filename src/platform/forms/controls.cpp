#include "platform/forms/controls.h"

namespace marrowfen {

Label::Label(Form& form, const Rect& bounds, std::string caption, Font font_, Colour fore, Align align_,
             std::optional<Colour> back_)
    : Control(form, bounds),
      Caption(*this, std::move(caption)),
      ForeColor(*this, fore),
      font(font_),
      align(align_),
      back(back_) {}

Image::Image(Form& form, const Rect& bounds, const marrowfen::Picture& picture, Stretch stretch_)
    : Control(form, bounds), Picture(*this, picture), stretch(stretch_) {}

PictureBox::PictureBox(Form& form, const Rect& bounds, std::optional<Colour> back_, DragMode drag_mode_)
    : Control(form, bounds), Picture(*this, {}), back(back_), drag_mode(drag_mode_) {}

Shape::Shape(Form& form, const Rect& bounds, const Style& style_) : Control(form, bounds), style(style_) {}

TextBox::TextBox(Form& form, const Rect& bounds, Mode mode_, const Style& style_, std::size_t max_length_,
                 std::string text)
    : Control(form, bounds),
      Text(*this, std::move(text)),
      ForeColor(*this, style_.fore),
      mode(mode_),
      style(style_),
      max_length(max_length_) {}

ListBox::ListBox(Form& form, const Rect& bounds, const Style& style_) : Control(form, bounds), style(style_) {}

void ListBox::clear() {
    entries_.clear();
    selected_.reset();
    touched();
}

void ListBox::add(std::string entry) {
    entries_.push_back(std::move(entry));
    touched();
}

void ListBox::select(std::size_t index) {
    const auto wanted = index < entries_.size() ? std::optional(index) : std::nullopt;
    if (wanted == selected_) return;
    selected_ = wanted;
    touched();
}

void ListBox::clear_selection() { select(entries_.size()); }

std::string ListBox::text() const { return selected_ ? entries_[*selected_] : std::string{}; }

ComboBox::ComboBox(Form& form, const Rect& bounds, const ListBox::Style& style_)
    : Control(form, bounds), Text(*this, {}), style(style_) {}

void ComboBox::clear() {
    entries_.clear();
    touched();
    Text = "";
}

void ComboBox::add(std::string entry) {
    entries_.push_back(std::move(entry));
    touched();
}

void ComboBox::choose(std::size_t index) {
    if (index >= entries_.size()) return;
    Text = entries_[index];
    if (on_click) on_click();
}

}  // namespace marrowfen
