#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <variant>

#include "platform/forms/geometry.h"
#include "platform/forms/input.h"
#include "platform/forms/property.h"

namespace marrowfen {

class ComboBox;
class Dial;
class Form;
class Image;
class Label;
class ListBox;
class PictureBox;
class Shape;
class TextBox;

/// A control as what it is. Whoever visits one says what to do with each kind, so that a new kind is forgotten nowhere.
using AnyControl = std::variant<Label*, Image*, PictureBox*, Shape*, Dial*, TextBox*, ListBox*, ComboBox*>;

/// A thing on a form. It registers itself with its form in the order of declaration, which is the order of stacking:
/// the last one lies on top. A control lives exactly as long as its form and never moves in memory.
class Control : public Touchable {
public:
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    Property<Twips> Left;
    Property<Twips> Top;
    Property<Twips> Width;
    Property<Twips> Height;
    Property<bool> Visible;
    Property<bool> Enabled;  ///< a disabled control gives its mouse events to the form's bare surface
    Property<std::string> Tag;
    /// What it is called where nothing that is written on it says so; empty: it has no other name.
    Property<std::string> Spoken;

    // What happens to the control. An empty handler means that nothing does.
    std::function<void()> on_mouse_down;
    std::function<void()> on_mouse_up;  ///< comes to the control that was pressed, wherever the pointer is by then
    std::function<void()> on_click;     ///< pressed and released over the control; chosen, in a combo box
    std::function<void()> on_double_click;
    std::function<void()> on_mouse_move;
    std::function<void(KeyPress&)> on_key_press;
    std::function<void(const KeyEvent&)> on_key_up;
    std::function<void()> on_lost_focus;  ///< to another control, of this form or of another one
    std::function<void(DragState)> on_drag_over;
    std::function<void(PictureBox& source)> on_drag_drop;

    [[nodiscard]] virtual AnyControl any() = 0;
    [[nodiscard]] Form& form() const { return form_; }
    [[nodiscard]] std::size_t number() const { return number_; }  ///< on its form, in the order of declaration
    [[nodiscard]] Rect bounds() const { return {Left, Top, Width, Height}; }  ///< in twips on its form
    void bring_to_front();

    [[nodiscard]] virtual bool takes_mouse() const { return true; }
    [[nodiscard]] virtual bool takes_focus() const { return false; }
    /// Whether one types or chooses in it, which takes the help of the toolkit.
    [[nodiscard]] virtual bool is_field() const { return false; }
    /// How far its painting reaches over its bounds on every side.
    [[nodiscard]] virtual Twips overhang() const { return 0; }

    void touched() override;

protected:
    Control(Form& form, const Rect& bounds);

private:
    Form& form_;
    const std::size_t number_;
};

/// nullptr: it is none, or there is no control.
template <class C>
[[nodiscard]] C* as(Control* control) {
    if (control == nullptr) return nullptr;
    const AnyControl any = control->any();
    C* const* found = std::get_if<C*>(&any);
    return found == nullptr ? nullptr : *found;
}

}  // namespace marrowfen
