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
    a.list.on_double_click = [&] { a.say("double click on " + a.list.text()); };
    a.list.add("one");
    desktop.clicked_into(a.list), desktop.selected(a.list, 0), desktop.double_clicked(a.list);
    EXPECT_EQ(said(), (Log{"a box lost focus", "a double click on one"}));
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
        desktop.mouse_released(c.where);
        EXPECT_EQ(said(), Log{}) << c.let_go;
        EXPECT_FALSE(desktop.drag()) << c.let_go;
    }
    EXPECT_EQ(stack(), cover.name);
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
    desktop.mouse_released(where);
    EXPECT_EQ(said_last(2), (Log{"b activated", "a gone"}));
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
        press(a.picture);  // another mouse button, while the first one is down
        EXPECT_EQ(said(), Log{});
        desktop.mouse_released(let_go), desktop.mouse_released(let_go);
        EXPECT_EQ(said(), (Log{"a acts"}));
        EXPECT_EQ(a.control_at({150, 50}), &a.picture);
    }
}

}  // namespace
}  // namespace marrowfen
