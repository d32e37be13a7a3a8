#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>

#include "platform/forms/geometry.h"

namespace marrowfen {

class ComboBox;
class Control;
class TextBox;
class Timer;

/// The keys that are asked for by name; every other key is `Other` and matters only for its character.
enum class Key : std::uint8_t {
    Other,
    D,
    Enter,
    Space,
    Tab,
    Escape,
    Left,
    Right,
    Up,
    Down,
    F1,
    F2,
    F3,
    F4,
    F5,
    F6,
    F7,
    F8,
    F9,
    F10,
    F11,
    F12
};

struct KeyEvent {
    Key key = Key::Other;
    bool alt = false;
};

/// One character from the keyboard. A handler that sets `code` to 0 swallows it: no later handler and no
/// control sees it.
struct KeyPress {
    char32_t code = 0;
    /// The digit that a keyboard of another country has on this key: some write letters and signs there, and digits
    /// only with Shift. 0: it is no such key, or Shift is held.
    char32_t digit = 0;
    [[nodiscard]] bool swallowed() const { return code == 0; }
    void swallow() { code = 0; }
};

enum class DragState : std::uint8_t { Enter, Leave, Over };

// What happens to the program, in plain words. Whoever knows a toolkit only translates; what an event means is decided
// by the desktop. Points are twips on the screen.

enum class MouseButton : std::uint8_t { None = 0, Left = 1, Right = 2, Middle = 4, Other = 8 };

struct MouseButtons {
    std::uint8_t bits = 0;
    [[nodiscard]] bool holds(MouseButton button) const { return (bits & static_cast<std::uint8_t>(button)) != 0; }
    friend bool operator==(MouseButtons, MouseButtons) = default;
};

/// `row` of a list or of a list that has dropped down, as the toolkit has laid it out.
struct MousePress {
    static constexpr std::size_t kBelowTheRows = SIZE_MAX;
    Point at;
    MouseButton button = MouseButton::Left;
    MouseButtons held{};               ///< this button, and those that were down already
    std::optional<std::size_t> row{};  ///< none: there are no rows here, as on a scroll bar
    bool by_touch = false;             ///< with a finger or a pen
};
struct MouseMove {
    Point at;
    MouseButtons held{};
};
struct MouseRelease {
    Point at;
    MouseButton button = MouseButton::Left;
};
struct WheelTurn {
    Point at;
};
struct KeyDown {
    Key key = Key::Other;
    bool shift = false;
    bool alt = false;
    bool control = false;
    bool command = false;    ///< the key of the window system
    bool repeats = false;    ///< it has been down for a while
    char32_t character = 0;  ///< 0: it stands for none
    std::uint32_t code = 0;  ///< tells one key of the keyboard from another, as X11 numbers them; 0: not known
};
struct KeyUp {
    Key key = Key::Other;
    bool alt = false;
    bool repeats = false;  ///< it will come down again at once, since it is being held
    std::uint32_t code = 0;
};
/// The user has changed the text of a box.
struct TextEdit {
    TextBox* box = nullptr;
    std::string text;
};
/// A row of a list box was selected, or one of a drop-down list picked, be it by the mouse or a key.
struct RowChoice {
    Control* list = nullptr;
    std::size_t row = 0;
};
/// A drop-down list has opened or closed.
struct ListDrop {
    ComboBox* list = nullptr;
    bool open = false;
};
/// A screen reader or a switch wants the ring to stand there.
struct FocusRequest {
    Control* control = nullptr;
};
struct Tick {
    Timer* timer = nullptr;
};
struct ScreenSize {
    Size screen;  ///< in twips
};
/// The window system wants the program to end.
struct CloseRequest {};

struct InputEvent {
    using What = std::variant<MousePress, MouseMove, MouseRelease, WheelTurn, KeyDown, KeyUp, TextEdit, RowChoice,
                              ListDrop, FocusRequest, Tick, ScreenSize, CloseRequest>;
    std::chrono::milliseconds time{};  ///< since any one moment; it never runs back
    What what;
};

/// Whose an event was. A field is a control that the toolkit helps with: a list, a drop-down list, a text box. What is
/// a field's goes on to the toolkit's own widget; nothing else does.
enum class Taker : std::uint8_t { Forms, Field, Nobody };

class InputSink {
public:
    virtual ~InputSink() = default;
    virtual Taker handle(const InputEvent& event) = 0;
};

}  // namespace marrowfen
