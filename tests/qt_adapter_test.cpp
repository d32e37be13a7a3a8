#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <ranges>

#include "platform/forms/picture_button.h"
#include "platform/qt/house_style.h"
#include "platform/qt/ink.h"
#include "platform/qt/toolkit.h"
#include "toy_screen.h"

namespace marrowfen {
namespace {

using QtAdapterTest = ToyScreen;

struct Gallery : Toy {
    Gallery(Desktop& the_desktop, const Picture& red, const Picture& fine, const Picture& missing)
        : Toy(the_desktop),
          box(*this, {1500, 1500, 660, 600}, kWhite),
          natural(*this, {3000, 1500, 1500, 1500}, fine, Stretch::No),
          absent(*this, {1500, 3000, 900, 600}, missing),
          drawing(*this, {3000, 3000, 2745, 660}, Picture::artwork("exit")) {
        box.Picture = red;
    }
    PictureBox box;
    Image natural, absent, drawing;
};

TEST_F(QtAdapterTest, PicturesStandWhereTheyBelongOnEveryScreen) {
    draw_picture("red.BMP", {9, 7}, Qt::red);
    draw_picture("fine.bmp", {90, 60}, Qt::blue, 3 * 3780);
    auto& form = shows<Gallery>(picture("Red.bmp"), picture("fine.bmp"), picture("MOUSE.bmp"));
    for (const QSize screen : {QSize(1024, 768), QSize(1600, 1200), QSize(1366, 768), QSize(2048, 1536)}) {
        screen_is(screen.width(), screen.height());
        SCOPED_TRACE(screen.width());
        for (const QPoint inside : {QPoint(100, 100), QPoint(143, 139)}) {
            EXPECT_EQ(seen(form, inside.x(), inside.y()), QColor(Qt::red));
        }
        for (const QPoint outside : {QPoint(98, 100), QPoint(100, 98), QPoint(145, 139), QPoint(143, 141)}) {
            EXPECT_EQ(seen(form, outside.x(), outside.y()), QColor(Qt::yellow));
        }
        EXPECT_EQ(ink(form, {190, 90, 120, 100}), QRect(200, 100, 30, 20))
            << "three dots of the file to a pixel of the design";
        EXPECT_GT(ink(form, {101, 201, 58, 38}).width(), 40) << "a missing picture is its name in letters";
        EXPECT_EQ(ink(form, {160, 200, 30, 40}), QRect());
        EXPECT_GT(ink(form, {200, 200, 183, 44}).width(), 170);
    }
}

TEST_F(QtAdapterTest, TextIsDrawnSmallerUntilItFits) {
    for (const char* caption : {"Short", "ExtraordinarilyWWWWWW", "The quick brown fox jumps over the lazy dog."}) {
        auto& form = shows<Holding<Label>>(Size{1500, 450}, caption, comic(18), kRed, Align::Centre);
        screen_is(1024, 768);
        const QRect drawn = ink(form, {0, 0, 400, 300});
        EXPECT_GT(drawn.width(), 40);
        EXPECT_TRUE(QRect(100, 100, 100, 30).contains(drawn)) << caption;
        desktop_.unload(form);
    }
    auto& form = shows<Holding<TextBox>>(Size{1500, 450}, TextBox::Mode::ReadOnly,
                                         TextBox::Style{.font = comic(18), .back = kYellow, .framed = false}, 100U,
                                         "A name that is far too long for its place");
    EXPECT_TRUE(QRect(100, 100, 100, 30).contains(ink(form, {0, 0, 400, 300})));
}

/// Of the strokes that a line of the screen runs through, the share that stands out enough from `behind`.
double readable_strokes(const QImage& screen, QRect part, QColor behind) {
    int strokes = 0;
    int readable = 0;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        double most = 0;  // of the stroke that has begun
        int width = 0;
        for (int x = part.left(); x <= part.right(); ++x) {
            const double here = contrast(screen.pixelColor(x, y), behind);
            if (here < 1.2 && width >= 3) ++strokes, readable += most >= Ink::kReadable ? 1 : 0;
            width = here < 1.2 ? 0 : width + 1;
            most = here < 1.2 ? 0 : std::max(most, here);
        }
    }
    return strokes == 0 ? 0 : static_cast<double>(readable) / strokes;
}

TEST_F(QtAdapterTest, TextInFaintColoursIsReadableByItsOutlineAndKeepsItsColour) {
    struct Texts : Toy {
        Texts(Desktop& the_desktop, Colour fore, Colour back)
            : Toy(the_desktop),
              label(*this, {750, 750, 4500, 450}, "rhyme with it", comic(20.25), fore, Align::Left, back),
              small(*this, {750, 1500, 4500, 450}, "a longer sentence.", comic(14.25), fore, Align::Left, back),
              box(*this, {750, 2250, 4500, 450}, TextBox::Mode::ReadOnly, {comic(15.75), fore, back, false}, 99,
                  "0:35"),
              list(*this, {750, 3000, 4500, 900}, {comic(14.25), fore, back}),
              combo(*this, {750, 4200, 4500, 525}, {comic(15.75), fore, back}),
              field(*this, {750, 5100, 4500, 525}, TextBox::Mode::Editable, {comic(15.75), fore, back}, 99, "Zoe") {
            list.add("1. Drag letters"), combo.Text = "Ann";
        }
        Label label, small;
        TextBox box;
        ListBox list;
        ComboBox combo;
        TextBox field;
    };
    for (const auto& [fore, back] : {std::pair{kRed, kYellow}, {rgb(64, 200, 255), kYellow}, {kRed, kWhite}}) {
        auto& form = shows<Texts>(fore, back);
        screen_is(1024, 768);
        desktop_.set_focus(form.list), settle();
        const QImage screen = window().grab().toImage();
        for (const Control* control : form.controls()) {
            const Rect place = control->bounds();
            const QRect inside(at(form, place.left / 15 + 4, place.top / 15 + 5), QSize(250, place.height / 15 - 10));
            EXPECT_GT(readable_strokes(screen, inside, to_qt(back)), 0.7) << place.top;
            int in_its_colour = 0;
            for (int y = inside.top(); y <= inside.bottom(); ++y) {
                for (int x = inside.left(); x <= inside.right(); ++x) {
                    in_its_colour += screen.pixelColor(x, y) == to_qt(fore) ? 1 : 0;
                }
            }
            EXPECT_GT(in_its_colour, 15) << place.top;
        }
        desktop_.unload(form);
    }
}

TEST_F(QtAdapterTest, TheRingStandsOutFromWhateverLiesOnEitherSide) {
    for (const Colour inside : {kYellow, kBlack, kWhite, kBlue, kRed}) {
        auto& form = shows<Holding<PictureBox>>(Size{1500, 1500}, inside);
        screen_is(1024, 768);
        form.control.on_click = [] {};
        type(Qt::Key_Tab), settle();
        const QImage screen = window().grab().toImage();
        std::vector<QColor> across;
        for (int x = 88; x < 104; ++x) across.push_back(screen.pixelColor(at(form, x, 150)));
        const auto edges = std::ranges::count_if(std::views::iota(1U, across.size()), [&](std::size_t i) {
            return contrast(across[i - 1], across[i]) >= 3;
        });
        EXPECT_GE(edges, 2) << "light, dark, light";
        desktop_.unload(form);
    }
}

TEST_F(QtAdapterTest, MouseAndKeysReachTheForms) {
    auto& form = shows<Holding<Image>>(Size{1500, 1500}, Picture{});
    screen_is(1600, 1200);
    form.control.on_mouse_down = [&] { form.told.emplace_back("down"); };
    form.control.on_mouse_up = [&] { form.told.emplace_back("up"); };
    form.control.on_click = [&] { form.told.emplace_back("click"); };
    click(form, 150, 150);
    press(form, 199, 199), release(form, 400, 20);
    click(form, 201, 150);
    double_click(at(form, 150, 150));
    type(Qt::Key_D), type(Qt::Key_D, Qt::AltModifier), type(Qt::Key_D, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_EQ(form.told, (Told{"down", "up", "click", "down", "up", "down", "up", "click", "down", "up", "click",
                               "Alt+D", "Alt+D"}));
    EXPECT_EQ(window().cursor().shape(), Qt::PointingHandCursor);
    move(form, 300, 300);
    EXPECT_EQ(window().cursor().shape(), Qt::ArrowCursor);
}

TEST_F(QtAdapterTest, ADoubleClickIsNoClickOnWhatTheFirstPressOpened) {
    auto& below = shows<Holding<Image>>(Size{1500, 1500}, Picture{});
    auto& above = shows<Holding<Image>>(Size{1500, 1500}, Picture{});
    screen_is(1024, 768);
    below.control.on_click = [&] { below.told.emplace_back("click"); };
    above.control.on_click = [&] { desktop_.hide(above); };
    double_click(at(above, 150, 150));
    EXPECT_FALSE(above.visible());
    EXPECT_EQ(below.told, Told{});
    click(below, 150, 150);
    EXPECT_EQ(below.told, Told{"click"}) << "after a pause it counts";
}

/// Takes the front back from whoever takes it.
struct Message : Toy {
    explicit Message(Desktop& the_desktop)
        : Toy(the_desktop, {900, 450}),
          answer(*this, {0, 0, 900, 450}, TextBox::Mode::Editable, TextBox::Style{comic(15.75)}) {}
    void deactivated() override { desktop().set_focus(answer); }
    TextBox answer;
};

TEST_F(QtAdapterTest, WhatIsTypedIntoATextBoxArrivesUnlessItIsSwallowed) {
    auto& form = shows<Holding<TextBox>>(Size{3000, 510}, TextBox::Mode::Editable, TextBox::Style{comic(15.75)}, 5U);
    form.control.on_key_press = [](KeyPress& press) {
        if (press.code == U'x') press.swallow();
    };
    type("Zxoe"), type(Qt::Key_Backspace), type("ey and more");
    EXPECT_EQ(form.control.Text, "Zoey ");
    form.control.Text = "Ann";
    settle();
    type("e");
    EXPECT_EQ(form.control.Text, "Anne");

    auto& other = shows<Toy>(Size{1500, 1500});
    type("z");
    EXPECT_EQ(form.control.Text, "Anne") << "another form is active";
    click(form, 150, 110), type("z");
    EXPECT_EQ(form.control.Text, "Annez");
    EXPECT_EQ(desktop_.active(), &form);

    auto& message = shows<Message>();
    desktop_.unload(other);
    form.control.Text = "";
    click(form, 290, 110), type("y");
    EXPECT_EQ(form.control.Text, "") << "a message must be answered first";
    EXPECT_EQ(message.answer.Text, "y");
}

TEST_F(QtAdapterTest, AnEntryOfADropDownListIsChosenAlsoWhenTheBoxShowsIt) {
    auto& form = shows<Holding<ComboBox>>(Size{3000, 555}, ListBox::Style{comic(15.75)});
    screen_is(1024, 768);
    form.control.on_click = [&] { form.told.push_back(form.control.Text); };
    form.control.on_key_press = [](KeyPress& press) { press.swallow(); };
    for (const char* name : {"Ann", "Ben", "A name that is a good deal longer than the box"}) form.control.add(name);
    form.control.Text = "Ben";
    for (const int row : {1, 0, 2}) {
        settle();
        click(form, 150, 110);
        auto* popup = QApplication::activePopupWidget();
        ASSERT_NE(popup, nullptr);
        EXPECT_GT(popup->width(), 300);
        auto& rows = *field<QComboBox>().view();
        EXPECT_TRUE(QTest::qWaitFor([&] {  // a list that has only just dropped down does not take a click yet
            QTest::mouseClick(rows.viewport(), Qt::LeftButton, {},
                              rows.visualRect(rows.model()->index(row, 0)).center());
            return QApplication::activePopupWidget() == nullptr;
        }));
        type("A"), type("b");
    }
    EXPECT_EQ(form.told, (Told{"Ben", "Ann", form.control.entries()[2]}));
    type(Qt::Key_Up);
    EXPECT_EQ(form.told.back(), "Ben") << "a key that moves in the list chooses";
}

TEST_F(QtAdapterTest, AListTellsItsSelectionDoubleClicksAndTheEnterKey) {
    auto& form = shows<Holding<ListBox>>(Size{3000, 3000}, ListBox::Style{comic(14.25)});
    for (const char* game : {"1. Rhymes", "2. Pictures", "3. Sentences"}) form.control.add(game);
    settle();
    form.control.on_double_click = [&] { form.told.push_back("double " + form.control.text()); };
    form.control.on_enter_key = [&] { form.told.push_back("enter " + form.control.text()); };
    auto& list = field<QListView>();
    const auto row = [&](int i) {
        return list.viewport()->mapTo(&window(), list.visualRect(list.model()->index(i, 0)).center());
    };
    QTest::mouseClick(handle(), Qt::LeftButton, {}, row(1));
    EXPECT_EQ(form.control.text(), "2. Pictures");
    double_click(row(2));
    type(Qt::Key_Up), type(Qt::Key_Return);
    EXPECT_EQ(form.told, (Told{"double 3. Sentences", "enter 2. Pictures"}));
    form.control.clear_selection();
    settle();
    double_click(list.viewport()->mapTo(&window(), QPoint(20, 140)));
    EXPECT_EQ(form.told.back(), "double ");
    type(Qt::Key_Down);
    EXPECT_EQ(form.control.text(), "1. Rhymes");

    auto& above = shows<Holding<Image>>(Size{3000, 3000}, Picture{});
    above.control.on_mouse_up = [&] { desktop_.unload(above); };
    form.told.clear();
    double_click(row(1));
    EXPECT_EQ(form.told, Told{}) << "the first press was not for the list";
}

TEST_F(QtAdapterTest, AFormMayGoInTheMiddleOfItsOwnHandler) {
    auto& below = shows<Holding<TextBox>>(Size{3000, 510}, TextBox::Mode::Editable, TextBox::Style{comic(15.75)});
    const auto go = [&](Form& form) {
        desktop_.unload(form);
        desktop_.yield();
    };
    auto& pressed = shows<Holding<Image>>(Size{3000, 3000}, Picture{});
    pressed.control.on_mouse_down = [&] { go(pressed); };
    click(pressed, 150, 150);
    auto& listing = shows<Holding<ListBox>>(Size{3000, 3000}, ListBox::Style{comic(14.25)});
    listing.control.add("1. Rhymes"), listing.control.on_double_click = [&] { go(listing); };
    settle();
    double_click(at(listing, 150, 110));
    auto& choosing = shows<Holding<ComboBox>>(Size{3000, 555}, ListBox::Style{comic(14.25)});
    choosing.control.add("Ann"), choosing.control.on_click = [&] { go(choosing); };
    settle(), type(Qt::Key_Down);
    auto& typed = shows<Holding<TextBox>>(Size{3000, 510}, TextBox::Mode::Editable, TextBox::Style{comic(14.25)});
    typed.control.on_key_press = [&](KeyPress&) { go(typed); };
    type("a");
    settle();
    EXPECT_EQ(desktop_.visible_forms(), std::vector<Form*>{&below});
    EXPECT_EQ(below.control.Text, "") << "the key was for the form that has gone";
    type("b");
    EXPECT_EQ(below.control.Text, "b");
}

TEST_F(QtAdapterTest, ADraggedTileFollowsThePointer) {
    auto& form = shows<Holding<PictureBox>>(Size{660, 600}, kBlue, DragMode::Automatic);
    screen_is(1024, 768);
    press(form, 120, 120);
    move(form, 300, 300), settle();
    EXPECT_EQ(seen(form, 300, 300), QColor(Qt::blue));
    EXPECT_EQ(seen(form, 110, 110), QColor(Qt::blue)) << "the tile itself stays";
    EXPECT_EQ(window().cursor().shape(), Qt::ClosedHandCursor);
    release(form, 300, 300), settle();
    EXPECT_EQ(seen(form, 300, 300), QColor(Qt::yellow));
}

TEST_F(QtAdapterTest, TheWindowClosesOnlyWithTheLastForm) {
    auto& form = shows<Toy>();
    int asked = 0;
    desktop_.on_close_request = [&] { ++asked; };
    EXPECT_FALSE(window().close());
    desktop_.on_close_request = [&] { desktop_.unload(form); };
    EXPECT_TRUE(window().close());
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(display_.run(), 0);
}

}  // namespace
}  // namespace marrowfen

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const auto toolkit = marrowfen::start_toolkit(argc, argv);
    return RUN_ALL_TESTS();
}
