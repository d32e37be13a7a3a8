#include "platform/forms/picture_button.h"
#include "toy_form.h"

namespace marrowfen {
namespace {

TEST_F(Forms, AClickMakesAFormActiveAndLeavesTheStackingAlone) {
    Toy& a = open("a");
    Toy& b = open("b", {300, 0});
    EXPECT_EQ(desktop.form_at(on_screen(a.key)), &b) << "the upper form hides the key of the lower one";
    click(a.picture);
    EXPECT_EQ(said(), (Log{"b box lost focus", "b deactivated", "a activated", "a picture down", "a picture up",
                           "a picture clicked"}));
    EXPECT_EQ(stack(), "ab");
}

TEST_F(Forms, APressedControlHearsOfTheReleaseWhereverItIs) {
    Toy& a = open("a");
    const Toy& b = open("b", {0, 500});
    press(a.picture), move(b.picture), release(b.picture);
    EXPECT_EQ(said_last(2), (Log{"a picture down", "a picture up"})) << "but that is no click";
    a.picture.Enabled = false, a.box.Visible = false;
    click(a.picture), click(a.box);
    EXPECT_EQ(said(), Log{}) << "the bare surface took it";
    a.below.on_click = [&] { a.say("reached"); };
    click(a.decoration);
    EXPECT_EQ(said(), (Log{"a reached"}));
}

TEST_F(Forms, ASecondPressSoonAfterInTheSamePlaceIsADoubleClickOnARowOfAList) {
    Toy& a = open("a");
    a.list.on_double_click = [&] { a.say("double click on " + a.list.text()); };
    a.list.add("one"), a.list.add("two");
    a.list.Left = 0, a.list.Width = 500, a.list.bring_to_front();
    const Point at{a.Left + 50, a.Top + 50};
    const auto clicks = [&](std::optional<std::size_t> row, std::chrono::milliseconds after = {}, Twips beside = 0) {
        display.idle(after);
        display.click({at.x + beside, at.y}, row);
    };
    const Log once{"a double click on two"};
    clicks(1), clicks(1, Mouse::kDoubleClickTime, Mouse::kDoubleClickDistance);
    EXPECT_EQ(said_last(1), once) << "as slow and as far as a small hand is";
    clicks(1);
    EXPECT_EQ(said(), Log{}) << "a third press begins anew";
    clicks(1);
    EXPECT_EQ(said(), once);
    clicks(0), clicks(1);
    clicks(1, Mouse::kDoubleClickTime + std::chrono::milliseconds(1));
    clicks({}), clicks({});  // on the scroll bar
    EXPECT_EQ(said(), Log{}) << "two rows, two clicks that lie apart, no row";
    EXPECT_EQ(a.list.text(), "two");
    clicks(MousePress::kBelowTheRows);
    EXPECT_EQ(a.list.text(), "two") << "a press on nothing takes no choice away";
    display.idle(2 * Mouse::kDoubleClickTime);
    a.list.clear_selection();
    clicks(MousePress::kBelowTheRows), clicks(MousePress::kBelowTheRows);
    EXPECT_EQ(said(), Log{"a double click on "});
    EXPECT_EQ(display.tell(WheelTurn{at}), Taker::Field);
    EXPECT_EQ(display.tell(WheelTurn{on_screen(a.combo)}), Taker::Nobody) << "a wheel chooses nobody";
}

TEST_F(Forms, TheSecondPressOfADoubleClickIsNotForWhatTheFirstHasOpened) {
    Toy& below = open("b");
    Toy& a = open("a");
    const Point at = on_screen(a.picture);
    a.picture.on_click = [&] { desktop.hide(a); };
    display.click(at), display.click(at), display.click(at);
    EXPECT_FALSE(a.visible());
    said();
    display.click(at);
    EXPECT_EQ(said(), Log{}) << "nor is the fourth of a flurry";
    display.idle(Mouse::kDoubleClickTime + std::chrono::milliseconds(1)), display.click(at);
    EXPECT_EQ(said_last(1), Log{"b picture clicked"}) << "after a pause it counts";

    below.combo.fill({"Ann"});
    below.combo.on_click = [&] {
        below.say("chosen");
        desktop.show(a);
    };
    below.combo.Left = 0, below.combo.Top = 0;  // on top of the box
    press(below.combo), release(below.combo);
    display.tell(ListDrop{&below.combo, true});
    EXPECT_EQ(display.press(on_screen(below.combo)), Taker::Nobody) << "it would close what the first press opened";
    release(below.combo), display.tell(ListDrop{&below.combo, false});
    display.idle(2 * Mouse::kDoubleClickTime);
    a.picture.on_click = [&] { a.say("clicked"); };
    display.pick(below.combo, 0, on_screen(below.combo)), said();
    EXPECT_EQ(desktop.active(), &a);
    display.click(on_screen(below.combo));
    EXPECT_EQ(said(), Log{}) << "what a name has opened does not take its second press";
}

TEST_F(Forms, OneButtonCountsAtATimeAndALostReleaseComesWithTheNextMoveOrPress) {
    Toy& a = open("a");
    const Point at = on_screen(a.picture);
    press(a.picture);
    display.press(at, {}, MouseButton::Right), display.release(at, MouseButton::Right);
    EXPECT_EQ(said(), (Log{"a picture down"}));
    display.tell(MouseMove{at, {}});
    EXPECT_EQ(said(), (Log{"a picture up", "a picture clicked", "a picture pointed at"}));
    display.press(at), display.press(at);
    EXPECT_EQ(said(), (Log{"a picture down", "a picture up", "a picture clicked", "a picture down"}));
    release(a.picture);
}

TEST_F(Forms, ATileIsDraggedOverKeysAndDroppedOnOne) {
    Toy& a = open("a");
    const Toy& cover = open("c", {370, 60});
    press(a.tile);
    EXPECT_EQ(desktop.drag()->source, &a.tile);
    move(a.key), move(a.key), move(a.picture), move(a.key);
    release(a.key);
    EXPECT_EQ(said_last(5), (Log{"a enter", "a over", "a leave", "a enter", "a drop of T"}));

    const Point on_key = on_screen(a.key);
    struct Case {
        std::string let_go;
        Handler meanwhile;
        Point where;
    };
    const std::vector<Case> cases{
        {"far outside", [] {}, {9000, 9000}},
        {"on a control that takes no tile", [] {}, on_screen(a.picture)},
        {"on a form above the key", [] {}, {375, 75}},
        {"when the tile has vanished", [&] { a.tile.Visible = false; }, on_key},
        {"when the tile is idle", [&] { a.tile.Visible = true, a.tile.Enabled = false; }, on_key},
        {"when the key is idle", [&] { a.tile.Enabled = true, a.key.Enabled = false; }, on_key},
        {"when the form has closed",
         [&] {
             desktop.unload(a), log.clear();
             EXPECT_FALSE(desktop.drag());
         },
         on_key},
    };
    for (const Case& c : cases) {
        a.tile.Visible = a.tile.Enabled = true;
        press(a.tile);
        ASSERT_TRUE(desktop.drag());
        c.meanwhile();
        display.release(c.where);
        EXPECT_EQ(said(), Log{}) << c.let_go;
        EXPECT_FALSE(desktop.drag()) << c.let_go;
    }
    EXPECT_EQ(stack(), cover.name);
}

TEST_F(Forms, AHandThatShakesOrCantHoldAButtonDropsATileAllTheSame) {
    Toy& a = open("a", {}, {.size = {600, 300}, .placement = Placement::Own});
    const Twips below = a.key.bounds().bottom() - 1;
    for (const Twips missed_by : {Mouse::kNearMiss, Mouse::kNearMiss + 1}) {
        press(a.tile);
        display.release({on_screen(a.key).x, below + missed_by});
        EXPECT_EQ(said(), missed_by > Mouse::kNearMiss ? Log{} : Log{"a drop of T"}) << missed_by;
    }
    click(a.tile);
    move(a.key), (void)said();
    click(a.key);
    EXPECT_EQ(said(), Log{"a drop of T"}) << "pressed, then pressed, with no button held between";
    click(a.tile);
    click(a.picture);
    EXPECT_FALSE(desktop.drag());
    EXPECT_EQ(said_last(1), Log{"a picture clicked"}) << "whoever thinks better of it puts the tile back";
}

TEST_F(Forms, WhatThePointerHoldsOrIsOverMayGo) {
    Toy* a = &open("a");
    const Toy& b = open("b", {0, 500});
    press(b.tile), move(a->key);
    desktop.unload(*a);
    move(b.picture), release(b.picture);
    EXPECT_EQ(said_last(2), (Log{"a enter", "a gone"})) << "a key that has gone is not told that the tile left it";
    a = &open("a");
    const Point where = on_screen(a->picture);
    press(a->picture), desktop.unload(*a);
    display.release(where);
    EXPECT_EQ(said_last(2), (Log{"b activated", "a gone"}));
}

TEST_F(Forms, AListThatIsOpenGoesWithItsForm) {
    Toy& b = open("b");
    Toy& a = open("a");
    display.tell(ListDrop{&a.combo, true});
    desktop.unload(a);
    said();
    click(b.picture);
    EXPECT_EQ(said_last(1), Log{"b picture clicked"});
}

TEST_F(Forms, APictureButtonActsOnceForEachPress) {
    Toy& a = open("a");
    const PictureButton button(a.picture, a.below, [&] { a.say("acts"); });
    a.below.Left = a.picture.Left.get();
    a.picture.on_click = nullptr;
    a.picture.bring_to_front();
    for (const Point let_go : {on_screen(a.picture), Point{9000, 9000}}) {
        press(a.picture);
        EXPECT_EQ(a.control_at({150, 50}), &a.below) << "the pressed picture shows";
        display.press(on_screen(a.picture), {}, MouseButton::Right);  // while the first one is down
        EXPECT_EQ(said(), Log{});
        display.release(let_go), display.release(let_go, MouseButton::Right);
        EXPECT_EQ(said(), (Log{"a acts"}));
        EXPECT_EQ(a.control_at({150, 50}), &a.picture);
    }
}

}  // namespace
}  // namespace marrowfen
