#include "platform/forms/controls.h"

#include <cmath>
#include <numbers>

#include "platform/text/letters.h"

namespace marrowfen {

namespace {

double turn(double from, double to) {
    const double span = std::fmod(to - from, 360.0);
    return span < 0 ? span + 360 : span;
}

// A stopwatch draws its growing hand anew each second: only the last one needs paint.
bool hides(const Disc& upper, const Disc& lower) {
    if (upper.outline != lower.outline) return false;
    if (!upper.sector || !lower.sector) return !upper.sector;
    const double from = turn(degrees(upper.sector->start), degrees(lower.sector->start));
    return from + span_of(*lower.sector) <= span_of(*upper.sector);
}

}  // namespace

double degrees(float radians) { return static_cast<double>(std::abs(radians)) * 180 / std::numbers::pi; }

double span_of(const Disc::Sector& sector) { return turn(degrees(sector.start), degrees(sector.end)); }

Label::Label(Form& form, const Rect& bounds, std::string caption, Font font_, Colour fore, Align align_,
             std::optional<Colour> back_)
    : Control(form, bounds),
      Caption(*this, std::move(caption)),
      ForeColor(*this, fore),
      font(font_),
      align(align_),
      back(back_) {}

Image::Image(Form& form, const Rect& bounds, const marrowfen::Picture& picture, std::string spoken, Stretch stretch_)
    : Control(form, bounds), Picture(*this, picture), stretch(stretch_) {
    Spoken = std::move(spoken);
}

PictureBox::PictureBox(Form& form, const Rect& bounds, std::optional<Colour> back_, DragMode drag_mode_)
    : Control(form, bounds), Picture(*this, {}), back(back_), drag_mode(drag_mode_) {}

Shape::Shape(Form& form, const Rect& bounds, const Style& style_) : Control(form, bounds), style(style_) {}

Dial::Dial(Form& form, Point centre, Twips radius, std::string spoken)
    : Control(form, {centre.x - radius, centre.y - radius, 2 * radius, 2 * radius}), SecondsLeft(*this, {}) {
    Spoken = std::move(spoken);
}

void Dial::draw(const Disc& disc) {
    while (!drawn_.empty() && hides(disc, drawn_.back())) drawn_.pop_back();
    drawn_.push_back(disc);
    touched();
}

TextBox::TextBox(Form& form, const Rect& bounds, Mode mode_, const Style& style_, std::size_t max_length_,
                 std::string text)
    : Control(form, bounds),
      Text(*this, std::move(text)),
      ForeColor(*this, style_.fore),
      mode(mode_),
      style(style_),
      max_length(max_length_) {}

void TextBox::edit(std::string_view text) { Text = fit_for_line(text, max_length); }

ListBox::ListBox(Form& form, const Rect& bounds, const Style& style_, std::string spoken)
    : Control(form, bounds), style(style_) {
    Spoken = std::move(spoken);
}

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

ComboBox::ComboBox(Form& form, const Rect& bounds, const ListBox::Style& style_, std::string spoken)
    : Control(form, bounds), Text(*this, {}), style(style_) {
    Spoken = std::move(spoken);
}

void ComboBox::fill(std::vector<std::string> entries) {
    entries_ = std::move(entries);
    touched();
    Text = "";
}

void ComboBox::choose(std::size_t index) {
    if (index >= entries_.size()) return;
    Text = entries_[index];
    if (on_click) on_click();
}

}  // namespace marrowfen
