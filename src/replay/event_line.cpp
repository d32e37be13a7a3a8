#include "replay/event_line.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "platform/match.h"
#include "replay/words.h"

namespace marrowfen {

namespace {

// What is left out is what is most common: the left button, which is the only one held, no row, no key beside.

std::string place(Point at) { return " " + std::to_string(at.x) + " " + std::to_string(at.y); }

std::string button(MouseButton button) {
    return button == MouseButton::Left ? "" : " b" + std::to_string(static_cast<int>(button));
}

std::string held(MouseButtons held, MouseButton usual) {
    return held.bits == static_cast<std::uint8_t>(usual) ? "" : " h" + std::to_string(held.bits);
}

std::string row(std::optional<std::size_t> row) {
    if (!row) return {};
    return *row == MousePress::kBelowTheRows ? " below" : " r" + std::to_string(*row);
}

std::string hexadecimal(char32_t code) {
    std::array<char, 8> digits{};
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), static_cast<std::uint32_t>(code), 16).ptr;
    return "U+" + std::string(digits.data(), end);
}

// In the order of the enumeration. `Other` has none.
constexpr std::array<std::string_view, 22> kKeyNames{"",   "D",    "Enter", "Space", "Tab", "Escape", "Left", "Right",
                                                     "Up", "Down", "F1",    "F2",    "F3",  "F4",     "F5",   "F6",
                                                     "F7", "F8",   "F9",    "F10",   "F11", "F12"};

std::string key_name(Key key) {
    const auto name = kKeyNames.at(static_cast<std::size_t>(key));
    return name.empty() ? "" : " " + std::string(name);
}

std::string flags(const KeyDown& key) {
    return (key.code == 0 ? "" : " c" + std::to_string(key.code)) + (key.shift ? " shift" : "") +
           (key.alt ? " alt" : "") + (key.control ? " control" : "") + (key.command ? " command" : "") +
           (key.repeats ? " repeats" : "");
}

template <class Thing>
std::string thing(const Thing& thing, const FormSet& forms) {
    return " " + std::string(forms.name_of(thing.form())) + "." + std::to_string(thing.number());
}

/// The words of an event after the first one, which says what kind it is.
class Reader {
public:
    Reader(std::string_view text, const FormSet& forms) : words_(text), forms_(forms) {}

    std::optional<InputEvent::What> read() {
        const std::string kind = words_.take();
        auto what = event(kind);
        return what && good_ && words_.at_end() ? std::move(what) : std::nullopt;
    }

private:
    std::optional<InputEvent::What> event(const std::string& kind) {
        if (kind == "press") return press();
        if (kind == "move") return move();
        if (kind == "release") return release();
        if (kind == "wheel") return WheelTurn{point()};
        if (kind == "key") return key_down();
        if (kind == "up") return key_up();
        if (kind == "text") {
            auto* box = as<TextBox>(control());
            auto text = words_.take_quoted();
            good_ = good_ && box != nullptr && text;
            return TextEdit{box, text.value_or("")};
        }
        if (kind == "row") {
            Control* list = control();
            return RowChoice{list, static_cast<std::size_t>(number())};
        }
        if (kind == "drop" || kind == "undrop") {
            auto* list = as<ComboBox>(control());
            good_ = good_ && list != nullptr;
            return ListDrop{list, kind == "drop"};
        }
        if (kind == "focus") return FocusRequest{control()};
        if (kind == "tick") return tick();
        if (kind == "screen") {
            const Point size = point();
            return ScreenSize{{size.x, size.y}};
        }
        if (kind == "close") return CloseRequest{};
        return std::nullopt;
    }

    std::int64_t number() {
        const auto number = words_.take_number();
        good_ = good_ && number;
        return number.value_or(0);
    }
    Point point() {
        const auto x = static_cast<Twips>(number());
        return {x, static_cast<Twips>(number())};
    }
    /// `b2` and the like; nothing when the word is another one.
    std::optional<std::int64_t> lettered(const std::string& word, char letter) {
        if (!word.starts_with(letter)) return std::nullopt;
        const auto number = to_number(std::string_view(word).substr(1));
        good_ = good_ && number;
        return number;
    }

    MousePress press() {
        MousePress press{.at = point()};
        std::optional<std::int64_t> held;
        while (good_ && !words_.at_end()) {
            const std::string word = words_.take();
            if (word == "touch") {
                press.by_touch = true;
            } else if (word == "below") {
                press.row = MousePress::kBelowTheRows;
            } else if (const auto button = lettered(word, 'b')) {
                press.button = static_cast<MouseButton>(*button);
            } else if (const auto bits = lettered(word, 'h')) {
                held = bits;
            } else if (const auto row = lettered(word, 'r')) {
                press.row = static_cast<std::size_t>(*row);
            } else {
                good_ = false;
            }
        }
        press.held.bits = static_cast<std::uint8_t>(held.value_or(static_cast<int>(press.button)));
        return press;
    }
    MouseMove move() {
        MouseMove move{.at = point()};
        if (!words_.at_end()) {
            const auto held = lettered(words_.take(), 'h');
            good_ = good_ && held;
            move.held.bits = static_cast<std::uint8_t>(held.value_or(0));
        }
        return move;
    }
    MouseRelease release() {
        MouseRelease release{.at = point()};
        if (!words_.at_end()) {
            const auto button = lettered(words_.take(), 'b');
            good_ = good_ && button;
            release.button = static_cast<MouseButton>(button.value_or(0));
        }
        return release;
    }
    KeyDown key_down() {
        KeyDown key;
        while (good_ && !words_.at_end()) {
            const std::string word = words_.take();
            std::uint32_t code = 0;
            if (word.starts_with("c") && word != "control" && word != "command") {
                key.code = static_cast<std::uint32_t>(lettered(word, 'c').value_or(0));
            } else if (const auto* name = std::ranges::find(kKeyNames, word); name != kKeyNames.end()) {
                key.key = static_cast<Key>(name - kKeyNames.begin());
            } else if (word.starts_with("U+") &&
                       std::from_chars(word.data() + 2, word.data() + word.size(), code, 16).ec == std::errc{}) {
                key.character = code;
            } else if (word == "shift") {
                key.shift = true;
            } else if (word == "alt") {
                key.alt = true;
            } else if (word == "control") {
                key.control = true;
            } else if (word == "command") {
                key.command = true;
            } else if (word == "repeats") {
                key.repeats = true;
            } else {
                good_ = false;
            }
        }
        return key;
    }
    KeyUp key_up() {
        const KeyDown key = key_down();
        return {key.key, key.alt, key.repeats, key.code};
    }
    Tick tick() {
        const auto [form, number] = thing();
        good_ = good_ && form != nullptr && number < form->timers().size();
        return {good_ ? form->timers()[number] : nullptr};
    }

    std::pair<Form*, std::size_t> thing() {
        const std::string word = words_.take();
        const auto dot = word.find('.');
        const auto number = dot == std::string::npos ? std::nullopt : to_number(std::string_view(word).substr(dot + 1));
        good_ = good_ && number;
        return {forms_.find(std::string_view(word).substr(0, dot)), static_cast<std::size_t>(number.value_or(0))};
    }
    Control* control() {
        const auto [form, number] = thing();
        if (form != nullptr) {
            const auto found = std::ranges::find(form->controls(), number, &Control::number);
            if (found != form->controls().end()) return *found;
        }
        good_ = false;
        return nullptr;
    }

    Words words_;
    const FormSet& forms_;
    bool good_ = true;
};

}  // namespace

std::string to_text(const EventLine& line) {
    return "+" + std::to_string(line.after.count()) + (line.yield == 0 ? "" : "/" + std::to_string(line.yield)) + " " +
           line.what;
}

std::optional<EventLine> to_event_line(std::string_view text) {
    if (!text.starts_with('+')) return std::nullopt;
    const auto blank = text.find(' ');
    if (blank == std::string_view::npos) return std::nullopt;
    const std::string_view head = text.substr(1, blank - 1);
    const auto slash = head.find('/');
    const auto after = to_number(head.substr(0, slash));
    const auto yield =
        slash == std::string_view::npos ? std::optional<std::int64_t>(0) : to_number(head.substr(slash + 1));
    if (!after || !yield) return std::nullopt;
    return EventLine{std::chrono::milliseconds(*after), static_cast<std::size_t>(*yield),
                     std::string(text.substr(blank + 1))};
}

std::string to_text(const InputEvent::What& what, const FormSet& forms) {
    return std::visit(
        Match{
            [](const MousePress& press) {
                return "press" + place(press.at) + button(press.button) + held(press.held, press.button) +
                       row(press.row) + (press.by_touch ? " touch" : "");
            },
            [](const MouseMove& move) { return "move" + place(move.at) + held(move.held, MouseButton::None); },
            [](const MouseRelease& release) { return "release" + place(release.at) + button(release.button); },
            [](const WheelTurn& turn) { return "wheel" + place(turn.at); },
            [](const KeyDown& key) {
                return "key" + key_name(key.key) + (key.character == 0 ? "" : " " + hexadecimal(key.character)) +
                       flags(key);
            },
            [](const KeyUp& key) {
                return "up" + key_name(key.key) + flags({.alt = key.alt, .repeats = key.repeats, .code = key.code});
            },
            [&](const TextEdit& edit) { return "text" + thing(*edit.box, forms) + " " + in_quotes(edit.text); },
            [&](const RowChoice& choice) {
                return "row" + thing(*choice.list, forms) + " " + std::to_string(choice.row);
            },
            [&](const ListDrop& drop) { return (drop.open ? "drop" : "undrop") + thing(*drop.list, forms); },
            [&](const FocusRequest& request) { return "focus" + thing(*request.control, forms); },
            [&](const Tick& tick) { return "tick" + thing(*tick.timer, forms); },
            [](const ScreenSize& size) {
                return "screen" + place({size.screen.width, size.screen.height});
            },
            [](const CloseRequest&) { return std::string("close"); },
        },
        what);
}

std::optional<InputEvent::What> to_event(std::string_view text, const FormSet& forms) {
    return Reader(text, forms).read();
}

}  // namespace marrowfen
