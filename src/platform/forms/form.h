#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "platform/forms/controls.h"
#include "platform/forms/timer.h"

namespace marrowfen {

class Desktop;

/// From below to above. While a message is on the screen it is the active form, whatever is clicked or shown.
enum class Level : std::uint8_t { Ordinary, TopMost, Message };
enum class Placement : std::uint8_t { Maximised, Centred, Own };
enum class Border : std::uint8_t { None, Thin };
enum class KeyPreview : std::uint8_t { No, Yes };

struct FormDesign {
    Size size;
    Placement placement = Placement::Centred;
    Level level = Level::TopMost;
    KeyPreview key_preview = KeyPreview::No;
    Border border = Border::None;
    Colour back = kYellow;
    Twips bare_top = 0;         ///< so much of its upper edge shows what lies below, under its controls
    bool takes_over = true;     ///< whether it becomes the active form when it is shown or pressed
    std::string_view spoken{};  ///< its name for somebody who can't see it
};

/// A window of the program. Handlers are told in the order load, activated, resized when it is first shown.
class Form : public Touchable {
public:
    Form(Desktop& desktop, const FormDesign& design);
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;
    virtual ~Form() = default;

    Property<Twips> Left;
    Property<Twips> Top;
    Property<Twips> Width;
    Property<Twips> Height;

    virtual void load() {}
    virtual void activated() {}    ///< has become the active form
    virtual void deactivated() {}  ///< another form of the program has
    virtual void resized() {}      ///< has got its size on the screen, the first time or anew
    virtual void key_down(const KeyEvent&) {}
    virtual void key_pressed(KeyPress&) {}                        ///< comes first with key preview on, never without
    [[nodiscard]] virtual Control* way_out() { return nullptr; }  ///< the button that Escape leads to, if there is one
    /// Puts the form where it belongs. Asked before the load and whenever the screen has changed.
    virtual void place();

    [[nodiscard]] Desktop& desktop() const { return desktop_; }
    [[nodiscard]] const FormDesign& design() const { return design_; }
    [[nodiscard]] Rect bounds() const { return {Left, Top, Width, Height}; }  ///< in twips on the screen
    [[nodiscard]] bool visible() const { return visible_; }
    [[nodiscard]] const std::vector<Control*>& controls() const { return controls_; }  ///< from the bottom to the top
    [[nodiscard]] const std::vector<Timer*>& timers() const { return timers_; }
    [[nodiscard]] Control* focus() const { return focus_; }
    /// The uppermost control that takes the mouse at a point of the form; nullptr: the bare surface.
    [[nodiscard]] Control* control_at(Point on_form) const;

    void touched() override;

private:
    friend class Control;
    friend class Desktop;
    friend class Ring;
    friend class Timer;
    void changed(const Rect& part);
    [[nodiscard]] Control* first_to_take_focus() const;

    Desktop& desktop_;
    FormDesign design_;
    std::vector<Control*> controls_;
    std::vector<Timer*> timers_;
    Control* focus_ = nullptr;
    Control* ring_ = nullptr;  // where the keyboard's ring stood last
    bool visible_ = false;
    bool displayed_ = false;
};

}  // namespace marrowfen
