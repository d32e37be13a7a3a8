#pragma once

#include <optional>

#include "platform/forms/input.h"

namespace marrowfen {

class Desktop;
class Form;
class PictureBox;

/// What a press, a move, a release and the wheel mean: which control hears of it, double clicks, and the drag of a
/// tile. A tile is dragged with the button held; or it is pressed where it lies, stays in the hand, and goes where the
/// next press is.
///
/// The first button that goes down counts until it is up again; others go nowhere meanwhile. A press that comes soon
/// after another one in the same place belongs to the form of the first: under the button that was meant may by now lie
/// one that ends the program, and a child double clicks everything.
class Mouse {
public:
    /// A six-year-old's double click is slow, and the hand moves in between.
    static constexpr std::chrono::milliseconds kDoubleClickTime{1000};
    static constexpr Twips kDoubleClickDistance = 20 * kTwipsPerPixel;  ///< on each axis
    /// A drop so near to a key, on each axis, and nearer to it than to any other, counts for it.
    static constexpr Twips kNearMiss = 6 * kTwipsPerPixel;

    struct Drag {
        PictureBox* source = nullptr;
        Point pointer;
        bool carried = false;  ///< with no button held
    };

    explicit Mouse(Desktop& desktop) : desktop_(desktop) {}

    Taker handle(const MousePress& press, std::chrono::milliseconds time);
    Taker handle(const MouseMove& move, std::chrono::milliseconds time);
    Taker handle(const MouseRelease& release, std::chrono::milliseconds time);
    Taker handle(const WheelTurn& turn);

    // What keys do in place of a mouse.
    void press_by_key(Control& control);  ///< down and up in its middle
    void take_up(PictureBox& tile);       ///< it is carried until it is put down, or back, or dropped by a press
    void carry_to(Point pointer);
    void put_down();  ///< where it is carried now
    void put_back();
    [[nodiscard]] bool is_carrying() const { return drag_ && drag_->carried; }
    /// Nothing of the form may be touched any more.
    void forget(const Form& form);

    /// Whether the user's last press was one with a finger or a pen, and no key has been struck since.
    [[nodiscard]] bool is_touched() const { return touched_; }
    void key_struck() { touched_ = false; }
    [[nodiscard]] const std::optional<Drag>& drag() const { return drag_; }

private:
    struct Press {
        MouseButton button = MouseButton::None;
        Point at;
        std::chrono::milliseconds time{}, released{};
        const Form* form = nullptr;  // only compared; nullptr once it has gone
        const Control* control = nullptr;
        std::optional<std::size_t> row;
    };

    [[nodiscard]] bool repeats_last(const MousePress& press, std::chrono::milliseconds time) const;
    [[nodiscard]] Taker begin(const MousePress& press, Form& form, bool second);
    [[nodiscard]] Taker press_field(const MousePress& press, Control& field, bool second);
    void let_go(Point pointer, std::chrono::milliseconds time);
    [[nodiscard]] PictureBox* key_under(Point pointer) const;
    [[nodiscard]] PictureBox* drop_target(Point pointer) const;
    void drag_to(Point pointer);
    void drop(PictureBox& source, Point pointer);
    void end_drag();

    Desktop& desktop_;
    Press last_;
    MouseButton held_ = MouseButton::None;
    bool touched_ = false;
    Taker taker_ = Taker::Nobody;  // of what is held
    Control* captured_ = nullptr;
    std::optional<Drag> drag_;
    PictureBox* under_drag_ = nullptr;
};

}  // namespace marrowfen
