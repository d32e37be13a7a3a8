#include "toy_form.h"

namespace marrowfen {
namespace {

constexpr FormDesign kOrdinary{.size = {600, 100}, .placement = Placement::Own, .level = Level::Ordinary};
constexpr FormDesign kListening{.size = {600, 100}, .placement = Placement::Own, .key_preview = KeyPreview::Yes};

TEST_F(Forms, AShowTellsLoadThenActivatedAndTheFirstTimeTheSize) {
    Toy& a = load("a");
    desktop.show(a);
    EXPECT_EQ(said(), (Log{"a load", "a activated", "a resized"}));
    Toy& b = load("b");
    desktop.show(b);
    EXPECT_EQ(said(), (Log{"b load", "a box lost focus", "a deactivated", "b activated", "b resized"}));
    desktop.hide(b);
    EXPECT_EQ(said(), (Log{"b box lost focus", "b deactivated", "a activated"}));
    desktop.show(b), desktop.show(b);
    EXPECT_EQ(said(), (Log{"a box lost focus", "a deactivated", "b activated"})) << "a size comes once";
}

TEST_F(Forms, TopMostFormsLieAboveOrdinaryOnesHoweverTheyAreRaised) {
    Toy& low = open("l", {}, kOrdinary);
    Toy& top = open("t");
    Toy& ground = open("g", {}, kOrdinary);
    Toy& upper = open("u");
    EXPECT_EQ(stack(), "lgtu");
    const std::vector<std::pair<Toy*, std::string>> raises{
        {&low, "gltu"}, {&top, "glut"}, {&ground, "lgut"}, {&upper, "lgtu"}};
    for (const auto& [raised, expected] : raises) {
        desktop.show(*raised);
        EXPECT_EQ(stack(), expected);
        EXPECT_EQ(desktop.active(), raised) << "also where it lies below others";
    }
    desktop.unload(upper);
    EXPECT_EQ(desktop.active(), &top) << "the uppermost of those that stay";
}

TEST_F(Forms, AMessageStaysActiveAndOnTopUntilItGoes) {
    Toy& a = open("a");
    Toy& message = open("m", {0, 500}, {.size = {600, 100}, .placement = Placement::Own, .level = Level::Message});
    click(a.picture);
    EXPECT_EQ(said().back(), "a picture clicked") << "the form below stays alive";
    click(a.list), display.click(on_screen(a.list), 0), display.click(on_screen(a.list), 0);
    a.list.add("one"), display.click(on_screen(a.list), 0);
    EXPECT_FALSE(a.list.selected()) << "but what one chooses in takes nothing";
    display.strike({.character = U'x'}, desktop);
    EXPECT_EQ(a.box.Text, "");
    EXPECT_EQ(message.box.Text, "x");
    Toy& later = open("o", {0, 1000});
    later.when_deactivated = [&] { desktop.set_focus(later.box); };
    desktop.set_focus(later.box), desktop.show(a);
    EXPECT_EQ(stack(), "oam");
    EXPECT_EQ(desktop.active(), &message);
    desktop.unload(message);
    EXPECT_EQ(desktop.active(), &a) << "the uppermost of those that stay";
    desktop.show(later), click(a.picture);
    EXPECT_EQ(desktop.active(), &later) << "a form may take the active state back";
}

TEST_F(Forms, TheFocusStaysWithItsFormUntilItIsGivenElsewhere) {
    Toy& a = open("a");
    EXPECT_EQ(a.focus(), &a.box) << "the first control that can have it";
    click(a.key);
    EXPECT_EQ(said(), (Log{"a box lost focus", "a key down", "a key up", "a key clicked"}));
    click(a.picture);
    EXPECT_EQ(a.focus(), &a.key) << "an image takes none";
    Toy& b = open("b", {0, 500});
    desktop.set_focus(a.box);
    EXPECT_EQ(desktop.active(), &a) << "a focus that is given brings its form";
    EXPECT_EQ(stack(), "ba");
    desktop.hide(b);
    desktop.set_focus(b.key);
    EXPECT_EQ(desktop.active(), &a) << "but not to a form that is not on the screen";
}

TEST_F(Forms, AListeningFormSeesKeysBeforeItsControlsAndMaySwallowThem) {
    Toy& a = open("a", {}, kListening);
    const auto strikes = [&](char32_t character) { return display.tell(KeyDown{.character = character}); };
    EXPECT_EQ(strikes(U'x'), Taker::Field);
    display.tell(KeyUp{.repeats = true}), display.tell(KeyUp{});
    EXPECT_EQ(said(), (Log{"a key down", "a sees a key", "a box x", "a box key up"}));
    a.when_key_pressed = [](KeyPress& press) { press.swallow(); };
    EXPECT_EQ(strikes(U'y'), Taker::Nobody);
    EXPECT_EQ(said(), (Log{"a key down", "a sees a key"}));
    a.when_key_pressed = [&](KeyPress&) { desktop.unload(a); };
    EXPECT_EQ(strikes(U'z'), Taker::Nobody) << "nobody is left whom the key is for";
    EXPECT_EQ(said(), (Log{"a key down", "a sees a key", "a gone"}));
    Toy& b = open("b");
    EXPECT_EQ(strikes(U'x'), Taker::Field);
    EXPECT_EQ(said(), (Log{"b box x"})) << "a form without key preview is not asked";
    b.box.on_key_press = [](KeyPress& press) { press.swallow(); };
    EXPECT_EQ(strikes(U'x'), Taker::Nobody);
}

TEST_F(Forms, CommandsAreNoTextAndWhatAHeldKeyRepeatsIsForTheFormThatItWasPressedOn) {
    Toy& a = open("a");
    for (const KeyDown& command :
         {KeyDown{.alt = true, .character = U'd'}, KeyDown{.command = true, .character = U'e'}}) {
        display.tell(command);
    }
    EXPECT_EQ(said(), Log{});
    display.tell(KeyDown{.alt = true, .control = true, .character = U'@'});  // the third level of some keyboards
    display.tell(KeyDown{.character = U'e'}), display.tell(KeyDown{.repeats = true, .character = U'e'});
    EXPECT_EQ(said(), (Log{"a box @", "a box e", "a box e"}));
    Toy& b = open("b", {0, 500});
    EXPECT_EQ(display.tell(KeyDown{.key = Key::Enter, .repeats = true, .character = U'\r'}), Taker::Nobody);
    EXPECT_EQ(said(), Log{});
    display.tell(KeyUp{.code = 10}), display.tell(KeyDown{.key = Key::Enter, .character = U'\r', .code = 36});
    EXPECT_EQ(said(), (Log{"b box key up", "b box \r"})) << "what came up before was another key";
    desktop.show(a), log.clear();
    display.tell(KeyUp{.code = 36}), display.tell(KeyDown{.key = Key::Enter, .character = U'\r', .code = 36});
    EXPECT_EQ(said(), (Log{"a box key up"})) << "up and down at one moment is a repeat, too";
    desktop.show(b), log.clear();
    display.tell(KeyDown{.character = U'f'}), display.tell(KeyDown{.repeats = true, .character = U'f'});
    EXPECT_EQ(said(), (Log{"b box f", "b box f"}));
    b.list.on_enter_key = [&] { b.say("enter"); };
    desktop.set_focus(b.list), log.clear();
    display.tell(KeyDown{.key = Key::Enter, .character = U'\r'});
    EXPECT_EQ(said(), Log{"b enter"});
    desktop.set_focus(a.box);
}

TEST_F(Forms, ATextBoxTakesNoMoreLettersThanItIsMadeFor) {
    Toy& a = open("a");
    a.small.edit("Zoë😀x");
    EXPECT_EQ(a.small.Text, "Zoë😀");
}

TEST_F(Forms, ATimerTicksAtItsIntervalUntilItIsStoppedOrItsFormGoes) {
    Toy& a = open("a");
    const auto ticks_in = [&](int milliseconds) {
        display.pass(std::chrono::milliseconds(milliseconds));
        return said().size();
    };
    EXPECT_EQ(ticks_in(5000), 0U) << "a timer begins idle";
    a.clock.enable();
    EXPECT_EQ(ticks_in(999), 0U);
    a.clock.enable();
    EXPECT_EQ(ticks_in(1), 1U) << "enabling a timer that runs changes nothing";
    EXPECT_EQ(ticks_in(3000), 3U);
    a.clock.disable();
    EXPECT_EQ(ticks_in(3000), 0U);
    a.clock.enable();
    desktop.hide(a), log.clear();
    EXPECT_EQ(ticks_in(1000), 1U) << "a hidden form is still there";
    desktop.unload(a), log.clear();
    EXPECT_EQ(ticks_in(3000), 0U);
}

TEST_F(Forms, AFormMayUnloadItselfInItsOwnHandlerWhichStillRunsToItsEnd) {
    open("u");
    Toy& a = open("a", {0, 500});
    a.picture.on_mouse_up = [&] {
        desktop.unload(a);
        EXPECT_EQ(stack(), "u") << "it leaves the screen at once";
        // Nothing that it still does may bring it to life again.
        a.clock.enable();
        a.box.Text = "still there";
        a.dial.draw({.sector = {}, .outline = kRed, .fill = kRed});
        desktop.show(a), desktop.set_focus(a.box), desktop.repaint_now(a), desktop.hide(a), desktop.unload(a);
        a.say("ends");
    };
    click(a.picture);
    EXPECT_EQ(said(), (Log{"a picture down", "u activated", "a ends", "a gone"}));
    display.pass(std::chrono::seconds(2));
    EXPECT_EQ(said(), Log{}) << "its timer has gone with it";
    EXPECT_EQ(stack(), "u");
}

TEST_F(Forms, AFormMayGoInsideAYieldOfItsOwnHandler) {
    Toy& a = open("a");
    Toy& b = open("b", {0, 500});
    b.picture.on_click = [&] { desktop.unload(a), b.say("has closed a"); };
    a.picture.on_click = [&] {
        display.during_yield([&] { click(b.picture); });
        desktop.yield();
        display.during_yield([&] { desktop.unload(b); });
        desktop.yield();
        a.say(desktop.is_loaded(a) ? "is there" : "has gone from the screen");
    };
    click(a.picture);
    EXPECT_EQ(said_last(4), (Log{"b has closed a", "a has gone from the screen", "a gone", "b gone"}));
    EXPECT_TRUE(display.ended()) << "no form is left";
}

TEST_F(Forms, AnotherResolutionPutsEveryFormInItsPlaceAnew) {
    const Toy& back = open("g", {}, {.size = {}, .placement = Placement::Maximised, .level = Level::Ordinary});
    const Toy& centred = open("c", {}, {.size = {600, 100}});
    const Toy& own = open("o", {70, 80});
    Toy& hidden = open("h", {}, {.size = {600, 100}});
    desktop.hide(hidden), log.clear();
    display.resize({12000, 9000});
    EXPECT_EQ(back.bounds(), (Rect{0, 0, 12000, 9000}));
    EXPECT_EQ(centred.bounds(), (Rect{5700, 4450, 600, 100}));
    EXPECT_EQ(own.bounds(), (Rect{70, 80, 600, 100}));
    EXPECT_EQ(hidden.bounds(), centred.bounds());
    EXPECT_EQ(said(), (Log{"g resized"})) << "the others have kept their size";
    EXPECT_EQ(stack(), "gco");
}

}  // namespace
}  // namespace marrowfen
