#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/headless/headless_display.h"

namespace marrowfen {

using Log = std::vector<std::string>;
using Handler = std::function<void()>;

/// A form that writes down all that happens to it.
struct Toy final : Form {
    Toy(Desktop& desktop, Log& log_, std::string name_, const FormDesign& design)
        : Form(desktop, design), log(log_), name(std::move(name_)) {
        watch(box, "box"), watch(picture, "picture"), watch(key, "key");
        key.on_drag_over = [this](DragState s) {
            say(s == DragState::Enter ? "enter" : s == DragState::Leave ? "leave" : "over");
        };
        key.on_drag_drop = [this](PictureBox& source) { say("drop of " + source.Tag.get()); };
        tile.Tag = "T";
    }
    ~Toy() override { say("gone"); }

    Log& log;
    const std::string name;
    TextBox box{*this, {0, 0, 100, 100}, TextBox::Mode::Editable, {}};
    Image picture{*this, {100, 0, 100, 100}};
    PictureBox tile{*this, {200, 0, 100, 100}, kWhite, DragMode::Automatic};
    PictureBox key{*this, {300, 0, 100, 100}, kWhite};
    ListBox list{*this, {400, 0, 100, 100}, {}};
    Image below{*this, {500, 0, 100, 100}};
    Shape decoration{*this, {500, 0, 100, 100}, {}};
    ComboBox combo{*this, {500, 200, 100, 100}, {}};
    TextBox small{*this, {600, 200, 100, 100}, TextBox::Mode::Editable, {}, 4};
    Dial dial{*this, {750, 250}, 50};
    Timer clock{*this, std::chrono::seconds{1}, [this] { say("tick"); }};
    Handler when_deactivated = [] {};
    std::function<void(KeyPress&)> when_key_pressed = [](KeyPress&) {};

    void load() override { say("load"); }
    void activated() override { say("activated"); }
    void deactivated() override { say("deactivated"), when_deactivated(); }
    void resized() override { say("resized"); }
    void key_down(const KeyEvent&) override { say("key down"); }
    void key_pressed(KeyPress& press) override { say("sees a key"), when_key_pressed(press); }
    void say(const std::string& what) { log.push_back(name + " " + what); }

private:
    void watch(Control& control, const std::string& what) {
        control.on_mouse_down = [this, what] { say(what + " down"); };
        control.on_mouse_up = [this, what] { say(what + " up"); };
        control.on_click = [this, what] { say(what + " clicked"); };
        control.on_mouse_move = [this, what] { say(what + " pointed at"); };
        control.on_lost_focus = [this, what] { say(what + " lost focus"); };
        control.on_key_press = [this, what](KeyPress& press) { say(what + " " + static_cast<char>(press.code)); };
        control.on_key_up = [this, what](const KeyEvent&) { say(what + " key up"); };
    }
};

constexpr FormDesign kPlain{.size = {600, 100}, .placement = Placement::Own};

/// Forms on a screen that nobody sees.
class Forms : public testing::Test {
protected:
    Forms() { display.attach(desktop); }

    Toy& load(const std::string& name, const FormDesign& design = kPlain) {
        return dynamic_cast<Toy&>(desktop.load(std::make_unique<Toy>(desktop, log, name, design)));
    }
    Toy& open(const std::string& name, Point at = {}, const FormDesign& design = kPlain) {
        Toy& toy = load(name, design);
        if (design.placement == Placement::Own) toy.Left = at.x, toy.Top = at.y;
        desktop.show(toy);
        log.clear();
        return toy;
    }
    static Point on_screen(const Control& control) {
        const Point centre = control.bounds().centre();
        return {control.form().Left + centre.x, control.form().Top + centre.y};
    }
    void press(const Control& control) {
        display.idle(2 * Mouse::kDoubleClickTime);
        display.press(on_screen(control));
    }
    void move(const Control& control) { display.move(on_screen(control)); }
    void release(const Control& control) { display.release(on_screen(control)); }
    void click(const Control& control) { press(control), release(control); }
    Log said() { return std::exchange(log, {}); }
    Log said_last(std::size_t lines) {
        const Log all = said();
        return {all.end() - static_cast<std::ptrdiff_t>(std::min(lines, all.size())), all.end()};
    }
    [[nodiscard]] std::string stack() const {  // from the bottom to the top
        std::string names;
        for (const Form* form : desktop.visible_forms()) names += dynamic_cast<const Toy&>(*form).name;
        return names;
    }

    Log log;  // outlives the forms, which say when they go
    HeadlessDisplay display;
    Desktop desktop{display};
};

}  // namespace marrowfen
