#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "platform/forms/control.h"
#include "platform/forms/look.h"

namespace marrowfen {

/// Text that nobody edits. It wraps at its width, and is painted smaller when it would not fit.
class Label final : public Control {
public:
    [[nodiscard]] AnyControl any() override { return this; }
    Label(Form& form, const Rect& bounds, std::string caption, Font font, Colour fore, Align align = Align::Left,
          std::optional<Colour> back = {});
    Property<std::string> Caption;
    Property<Colour> ForeColor;
    const marrowfen::Font font;
    const Align align;
    const std::optional<Colour> back;  ///< none: the form shows through
};

enum class Stretch : std::uint8_t { No, Yes };

/// A picture without a frame. Stretched, it fills its bounds; otherwise it stands at the upper left in its natural
/// size. `spoken` is what it says to somebody who can't see it; a picture that says nothing only decorates.
class Image final : public Control {
public:
    [[nodiscard]] AnyControl any() override { return this; }
    Image(Form& form, const Rect& bounds, const marrowfen::Picture& picture = {}, std::string spoken = {},
          Stretch stretch = Stretch::Yes);
    Property<marrowfen::Picture> Picture;
    const Stretch stretch;
    std::optional<bool> switched;  ///< which state of a switch it shows; none: it is no switch
};

enum class DragMode : std::uint8_t { None, Automatic };

/// A field that shows a picture, stretched to its bounds, and can hold the focus. In automatic drag mode a press on it
/// starts a drag.
class PictureBox final : public Control {
public:
    [[nodiscard]] AnyControl any() override { return this; }
    PictureBox(Form& form, const Rect& bounds, std::optional<Colour> back, DragMode drag_mode = DragMode::None);
    Property<marrowfen::Picture> Picture;
    const std::optional<Colour> back;  ///< none: what lies below shows through
    const DragMode drag_mode;
    [[nodiscard]] bool takes_focus() const override { return true; }
};

/// A rectangle that only decorates: the mouse goes through it.
class Shape final : public Control {
public:
    [[nodiscard]] AnyControl any() override { return this; }
    struct Style {
        std::optional<Colour> fill{};
        std::optional<Colour> outline{};
        int outline_pixels = 1;  ///< at the design's resolution
        Twips corner = 0;        ///< radius
    };
    Shape(Form& form, const Rect& bounds, const Style& style);
    const Style style;
    [[nodiscard]] bool takes_mouse() const override { return false; }
    [[nodiscard]] Twips overhang() const override { return style.outline_pixels * kTwipsPerPixel; }
};

/// A disc, or a sector of one, painted upon what was painted before.
struct Disc {
    /// Radians, counter-clockwise from three o'clock. The sector runs counter-clockwise from |start| to |end|.
    struct Sector {
        float start = 0;
        float end = 0;
    };
    std::optional<Sector> sector;  ///< none: the whole disc
    Colour outline;
    Colour fill;
};

/// A round face that is painted disc by disc, and bare at first. Nothing wipes it clean.
class Dial final : public Control {
public:
    struct Time {
        int left = 0;
        int of = 0;  ///< 0: it has not been set
        friend constexpr bool operator==(Time, Time) = default;
    };
    Dial(Form& form, Point centre, Twips radius, std::string spoken = {});
    Property<Time> SecondsLeft;  ///< said, not drawn
    [[nodiscard]] AnyControl any() override { return this; }
    void draw(const Disc& disc);
    [[nodiscard]] const std::vector<Disc>& drawn() const { return drawn_; }  ///< but for what later discs hide
    [[nodiscard]] bool takes_mouse() const override { return false; }
    [[nodiscard]] Twips overhang() const override { return kTwipsPerPixel; }

private:
    std::vector<Disc> drawn_;
};

/// How far a sector reaches, in degrees counter-clockwise, from 0 up to 360.
[[nodiscard]] double span_of(const Disc::Sector& sector);
[[nodiscard]] double degrees(float radians);  ///< of the angle's size, whatever its sign

/// One line of text. An editable box is a real text field of the desktop; a read-only one is painted, and a text that
/// is too long for it ends in an ellipsis.
class TextBox final : public Control {
public:
    [[nodiscard]] AnyControl any() override { return this; }
    enum class Mode : std::uint8_t { Editable, ReadOnly };
    enum class Stand : std::uint8_t { Middle, Top };  ///< of the line in the box; a label's stands at the top
    static constexpr std::size_t kNoLimit = 32767;
    struct Style {
        marrowfen::Font font;
        Colour fore = kRed;
        Colour back = kWhite;
        bool framed = true;
        Stand stand = Stand::Middle;
    };
    TextBox(Form& form, const Rect& bounds, Mode mode, const Style& style, std::size_t max_length = kNoLimit,
            std::string text = {});
    Property<std::string> Text;
    Property<Colour> ForeColor;
    const Mode mode;
    const Style style;
    const std::size_t max_length;  ///< in characters
    /// The user has typed: what is more than `max_length`, or no letter, is dropped.
    void edit(std::string_view text);
    [[nodiscard]] bool takes_focus() const override { return mode == Mode::Editable; }
    [[nodiscard]] bool is_field() const override { return mode == Mode::Editable; }
};

/// A list of lines, of which one at most is selected.
class ListBox final : public Control {
public:
    [[nodiscard]] AnyControl any() override { return this; }
    struct Style {
        marrowfen::Font font;
        Colour fore = kRed;
        Colour back = kYellow;
    };
    ListBox(Form& form, const Rect& bounds, const Style& style, std::string spoken = {});
    const Style style;
    std::function<void()> on_enter_key;

    void clear();
    void add(std::string entry);
    void select(std::size_t index);  ///< an index past the end selects nothing
    void clear_selection();
    [[nodiscard]] const std::vector<std::string>& entries() const { return entries_; }
    [[nodiscard]] std::optional<std::size_t> selected() const { return selected_; }
    [[nodiscard]] std::size_t selected_count() const { return selected_ ? 1 : 0; }
    [[nodiscard]] std::string text() const;  ///< of the selected entry; empty when none is
    [[nodiscard]] bool takes_focus() const override { return true; }
    [[nodiscard]] bool is_field() const override { return true; }

private:
    std::vector<std::string> entries_;
    std::optional<std::size_t> selected_;
};

/// A drop-down list under a box into which nothing can be typed. The box can show a text that is not in the list.
class ComboBox final : public Control {
public:
    [[nodiscard]] AnyControl any() override { return this; }
    ComboBox(Form& form, const Rect& bounds, const ListBox::Style& style, std::string spoken = {});
    Property<std::string> Text;  ///< what the box shows
    const ListBox::Style style;

    void fill(std::vector<std::string> entries);  ///< with these instead of what was there; the box is empty
    void choose(std::size_t index);               ///< the user picks an entry: the box shows it, and the click is told
    [[nodiscard]] const std::vector<std::string>& entries() const { return entries_; }
    [[nodiscard]] bool takes_focus() const override { return true; }
    [[nodiscard]] bool is_field() const override { return true; }

private:
    std::vector<std::string> entries_;
};

/// Controls of one kind under one name, counted from `First`.
template <class C, int First>
class ControlArray {
public:
    template <class... Args>
    C& add(Args&&... args) {
        return controls_.emplace_back(std::forward<Args>(args)...);
    }
    [[nodiscard]] C& operator[](int index) { return controls_.at(static_cast<std::size_t>(index - First)); }
    [[nodiscard]] const C& operator[](int index) const { return controls_.at(static_cast<std::size_t>(index - First)); }
    [[nodiscard]] static constexpr int first() { return First; }
    [[nodiscard]] int last() const { return First + static_cast<int>(controls_.size()) - 1; }
    auto begin() { return controls_.begin(); }
    auto end() { return controls_.end(); }

private:
    std::deque<C> controls_;  // a deque never moves what it holds
};

}  // namespace marrowfen
