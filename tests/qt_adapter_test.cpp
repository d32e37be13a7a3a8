#include <sys/stat.h>

#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <ranges>

#include "platform/forms/timer.h"
#include "platform/qt/house_style.h"
#include "platform/qt/ink.h"
#include "platform/qt/pictures.h"
#include "platform/qt/qt_clock.h"
#include "platform/qt/toolkit.h"
#include "toy_screen.h"

namespace marrowfen {
namespace {

using QtAdapterTest = ToyScreen;

struct Gallery : Toy {
    Gallery(Desktop& the_desktop, const Picture& red, const Picture& fine, const Picture& missing)
        : Toy(the_desktop),
          natural(*this, {3000, 1500, 1500, 1500}, fine, {}, Stretch::No),
          absent(*this, {1500, 3000, 900, 600}, missing),
          drawing(*this, {3000, 3000, 2745, 660}, Picture::artwork("exit")) {
        for (int i = 0; i < 9; ++i) row.add(*this, Rect{1500 + i * 667, 5345, 667, 655}, kWhite).Picture = red;
        for (PictureBox* box : {&one, &row[8]}) box->Picture = red;
    }
    PictureBox one{*this, {1500, 1500, 660, 600}, kWhite};
    ControlArray<PictureBox, 0> row;  // side by side, up to the form's lower right
    Image natural, absent, drawing;
};

TEST_F(QtAdapterTest, PicturesStandWhereTheyBelongOnEveryScreen) {
    draw_picture("red.BMP", {9, 7}, Qt::red);
    draw_picture("fine.bmp", {90, 60}, Qt::blue, 3 * 3780);
    auto& form = shows<Gallery>(picture("Red.bmp"), picture("fine.bmp"), picture("MOUSE.bmp"));
    for (const QSize screen : {QSize(1024, 768), QSize(1600, 1200), QSize(1366, 768), QSize(2048, 1536)}) {
        screen_is(screen.width(), screen.height());
        SCOPED_TRACE(screen.width());
        EXPECT_EQ(form.Left, (qRound(screen.width() / scale() * 15) - 7500) / 2) << "the form knows of the new screen";
        for (const QPoint inside : {QPoint(100, 100), QPoint(143, 139)}) {
            EXPECT_EQ(seen(form, inside.x(), inside.y()), QColor(Qt::red));
        }
        for (const QPoint outside : {QPoint(98, 100), QPoint(100, 98), QPoint(145, 139), QPoint(143, 141)}) {
            EXPECT_EQ(seen(form, outside.x(), outside.y()), QColor(Qt::yellow));
        }
        const QRect row(dot(form, 100, 5345 / 15.0), dot(form, 7503 / 15.0, 400) - QPoint(1, 1));
        const QImage image = shot();
        for (int x = row.left(); x < row.right(); ++x) {
            ASSERT_EQ(image.pixelColor(x, row.center().y()), QColor(Qt::red)) << "a gap between two keys at dot " << x;
        }
        EXPECT_EQ(image.pixelColor(row.left(), row.bottom()), QColor(Qt::red)) << "the last dots of the form are cut";
        const QRect fine = ink(form, {190, 90, 120, 100});
        EXPECT_TRUE(fine.contains({201, 101, 28, 18}) && QRect(199, 99, 32, 22).contains(fine))
            << "three dots of the file to a pixel of the design";
        EXPECT_GT(ink(form, {101, 201, 58, 38}).width(), 40) << "a missing picture is its name in letters";
        EXPECT_EQ(ink(form, {160, 200, 30, 40}), QRect());
        EXPECT_GT(ink(form, {200, 200, 183, 44}).width(), 170);
    }
}

struct Times final : InputSink {
    std::vector<std::chrono::milliseconds> times;
    Taker handle(const InputEvent& event) override { return times.push_back(event.time), Taker::Nobody; }
};

TEST_F(QtAdapterTest, AnEventIsOfTheMomentAtWhichItWasDoneHoweverLateItIsLookedAt) {
    Times sink;
    Events events(sink);
    for (const quint64 stamp : {1000U, 1900U}) {
        QKeyEvent key(QEvent::KeyPress, Qt::Key_Return, {});
        key.setTimestamp(stamp);
        events.tell(KeyDown{.key = Key::Enter}, key);
    }
    EXPECT_EQ(sink.times.back() - sink.times.front(), std::chrono::milliseconds(900));
}

TEST_F(QtAdapterTest, AKeyThatAScreenReaderHandsOnWithoutATimeIsOfNow) {
    Times sink;
    Events events(sink);
    const std::chrono::hours since_the_computer_started{300};
    for (const auto stamp : {0L, std::chrono::milliseconds(since_the_computer_started).count(), 0L}) {
        QKeyEvent key(QEvent::KeyPress, Qt::Key_Return, {});
        key.setTimestamp(static_cast<quint64>(stamp));
        events.tell(KeyDown{.key = Key::Enter}, key);
    }
    EXPECT_LT(sink.times.back(), since_the_computer_started);
}

TEST_F(QtAdapterTest, ClocksThatPartLeaveTimeBetweenTwoPresses) {
    constexpr std::chrono::milliseconds kBetween{1500};
    constexpr std::chrono::milliseconds kBefore = std::chrono::hours(300);
    constexpr std::chrono::milliseconds kAnew{1};
    for (const auto later : {kAnew, kBefore - std::chrono::hours(1), kBefore + std::chrono::hours(1)}) {
        Times sink;
        Events events(sink);
        for (const auto stamp : {kBefore, later, later + kBetween}) {
            QKeyEvent key(QEvent::KeyPress, Qt::Key_Return, {});
            key.setTimestamp(static_cast<quint64>(stamp.count()));
            events.tell(KeyDown{.key = Key::Enter}, key);
        }
        EXPECT_EQ(sink.times.at(2) - sink.times.at(1), kBetween);
        EXPECT_LT(sink.times.at(1), std::chrono::minutes(1));
    }
}

TEST_F(QtAdapterTest, AFingerBringsLettersToWriteWithAndAMouseTakesThemAway) {
    const std::unique_ptr<QPointingDevice> finger(QTest::createTouchDevice());
    const auto taps = [&](QPoint place) {
        QTest::touchEvent(&window(), finger.get()).press(0, place, &window());
        QTest::touchEvent(&window(), finger.get()).release(0, place, &window());
        settle();
    };
    auto& form = shows<Holding<TextBox>>(Size{3000, 450}, TextBox::Mode::Editable, TextBox::Style{.font = comic(15)});
    const auto letter = [&](const std::string& caption) {
        const Form& letters = *desktop_.visible_forms().back();
        const auto key = std::ranges::find_if(letters.controls(), [&](Control* c) {
            return as<Label>(c) != nullptr && as<Label>(c)->Caption == caption;
        });
        if (key == letters.controls().end()) throw std::logic_error("there is no " + caption);
        const Point centre = (*key)->bounds().centre();
        return at(letters, centre.x / kTwipsPerPixel, centre.y / kTwipsPerPixel);
    };
    (void)words();
    taps(at(form, 150, 110));
    EXPECT_TRUE(std::ranges::any_of(words(), [](const auto& told) { return told.ends_with(" touch"); }));
    for (const char* next : {"Z", "o", "←", "o", "e", "é", "é", "é", "é", "-", "A"}) taps(letter(next));
    EXPECT_EQ(form.control.Text, "Zoë-A");
    EXPECT_EQ(field<QLineEdit>().text(), "Zoë-A");
    for (const char* next : {"é", "←", "L", "é", "é", "é"}) taps(letter(next));
    EXPECT_EQ(form.control.Text, "Zoë-Ł") << "round again";
    EXPECT_EQ(desktop_.active(), &form);
    click(form, 150, 110);
    settle();
    EXPECT_EQ(desktop_.visible_forms().size(), 1U);
    taps(at(form, 150, 110));
    type("b");
    EXPECT_EQ(form.control.Text, "Zoë-Łb");
    EXPECT_EQ(desktop_.visible_forms().size(), 1U) << "there is a keyboard";
    taps(at(form, 150, 110));
    desktop_.unload(form);
    EXPECT_TRUE(desktop_.visible_forms().empty()) << "the program would not end";
}

struct Watch : Toy {
    using Toy::Toy;
    Dial dial{*this, {3000, 3000}, 1500};
};

TEST_F(QtAdapterTest, AStopwatchShowsItsDiscTheTimeThatIsOverAndTheHand) {
    auto& form = shows<Watch>();
    screen_is(2048, 1536);
    const auto looks = [&](const std::vector<QColor>& quarters) {  // from twelve o'clock on
        settle();
        std::vector<QColor> found;
        for (const QPoint place : {QPoint(235, 165), QPoint(235, 235), QPoint(165, 235), QPoint(165, 165)}) {
            found.push_back(seen(form, place.x(), place.y()));
        }
        EXPECT_EQ(found, quarters);
        EXPECT_EQ(seen(form, 280, 120), QColor(Qt::yellow)) << "it is round";
    };
    const auto passes = [&](float hand) { form.dial.draw({Disc::Sector{hand, -1.58F}, kBlue, kWhite}); };
    form.dial.draw({.sector = {}, .outline = kBlue, .fill = kRed});
    looks({Qt::red, Qt::red, Qt::red, Qt::red});
    passes(-0.5F), passes(0);  // a quarter, up to three o'clock
    looks({Qt::white, Qt::red, Qt::red, Qt::red});
    for (const QPoint hand : {QPoint(250, 200), QPoint(199, 150)}) {
        EXPECT_GT(seen(form, hand.x(), hand.y()).blue(), 200);
        EXPECT_LT(seen(form, hand.x(), hand.y()).red(), 50);
    }
    passes(-4.71F);
    looks({Qt::white, Qt::white, Qt::red, Qt::red});
}

TEST_F(QtAdapterTest, AFileThatIsNoWholePictureIsItsNameInLettersOnALightGround) {
    const Typefaces faces(files_);
    const Pictures pictures(files_, faces);
    const auto drawn = [&](const std::string& name) {
        return pictures.render(picture(name), Stretch::Yes, {90, 60}, Scale({1024, 768}, 1)).toImage();
    };
    const QImage letters = drawn("nowhere\\cat.bmp");
    EXPECT_GT(letters.pixelColor(45, 3).lightness(), 200) << "what lies below may be as dark as the letters";

    const std::string file = (folder_.path() / "cat.bmp").string();
    draw_picture("cat.bmp", {300, 300}, Qt::blue);
    EXPECT_EQ(drawn("cat.bmp").pixelColor(45, 30), QColor(Qt::blue));
    const auto whole = std::filesystem::file_size(file);
    for (const std::uintmax_t size : {std::uintmax_t{0}, std::uintmax_t{30}, whole / 2, whole - 1}) {
        draw_picture("cat.bmp", {300, 300}, Qt::blue);
        std::filesystem::resize_file(file, size);
        EXPECT_EQ(drawn("cat.bmp"), letters) << size << " of its bytes";
    }
    draw_picture("cat.bmp", {300, 300}, Qt::blue);
    std::filesystem::resize_file(file, 100'000'000);
    EXPECT_EQ(drawn("cat.bmp"), letters) << "far too large";
    std::filesystem::remove(file);
    ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
    EXPECT_EQ(drawn("cat.bmp"), letters) << "nobody ever writes into this pipe";
}

TEST_F(QtAdapterTest, TextIsDrawnSmallerUntilItFits) {
    for (const char* caption : {"Short", "ExtraordinarilyWWWWWW", "The quick brown fox jumps over the lazy dog."}) {
        auto& form = shows<Holding<Label>>(Size{1500, 450}, caption, comic(18), kRed, Align::Centre);
        const QRect drawn = ink(form, {0, 0, 400, 300});
        EXPECT_GT(drawn.width(), 40);
        EXPECT_TRUE(QRect(99, 100, 101, 30).contains(drawn)) << caption;
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
        desktop_.set_focus(form.list), settle();
        const QImage screen = shot();
        for (const Control* control : form.controls()) {
            const Rect place = control->bounds();
            const QRect inside(dot(form, place.left / 15 + 4, place.top / 15 + 5),
                               dot(form, place.left / 15 + 254, place.bottom() / 15 - 5));
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
        form.control.on_click = [] {};
        type(Qt::Key_Tab), settle();
        const QImage screen = shot();
        std::vector<QColor> across;
        for (int x = 88; x < 104; ++x) across.push_back(screen.pixelColor(dot(form, x, 150)));
        const auto edges = std::ranges::count_if(std::views::iota(1U, across.size()), [&](std::size_t i) {
            return contrast(across[i - 1], across[i]) >= 3;
        });
        EXPECT_GE(edges, 2) << "light, dark, light";
        desktop_.unload(form);
    }
}

TEST_F(QtAdapterTest, WhatHandsDoIsToldInPlainWords) {
    auto& form = shows<Holding<Image>>(Size{1500, 1500}, Picture{});
    form.control.on_click = [&] { form.told.emplace_back("click"); };
    move(form, 150, 150), (void)words();
    const std::string place = std::to_string(form.Left + 2250) + " " + std::to_string(form.Top + 2250);
    const std::string beside = std::to_string(form.Left + 2400) + " " + std::to_string(form.Top + 2250);
    double_click(at(form, 150, 150));
    EXPECT_EQ(words(), (Told{"press " + place, "release " + place, "press " + place, "release " + place}));
    EXPECT_EQ(form.told, (Told{"click", "click"}));
    QTest::mousePress(handle(), Qt::RightButton, {}, at(form, 150, 150), kPause);
    move(form, 160, 150), move(form, 150, 150);
    QTest::mouseRelease(handle(), Qt::RightButton, {}, at(form, 150, 150));
    turn_wheel(at(form, 150, 150));
    EXPECT_EQ(words(), (Told{"press " + place + " b2", "move " + beside + " h2", "move " + place + " h2",
                             "release " + place + " b2", "wheel " + place}));
    EXPECT_EQ(window().cursor().shape(), Qt::PointingHandCursor);
    move(form, 300, 300);
    EXPECT_EQ(window().cursor().shape(), Qt::ArrowCursor);
    (void)words();
    type(Qt::Key_D, Qt::AltModifier), type(Qt::Key_Enter), type(Qt::Key_Return), type(Qt::Key_Backspace);
    EXPECT_EQ(words(), (Told{"key alt", "key D U+64 alt", "up D alt", "up", "key Enter U+d", "up Enter",
                             "key Enter U+d", "up Enter", "key U+8", "up"}));
    const auto holds = [](QEvent::Type type) {
        QKeyEvent held(type, Qt::Key_E, Qt::ControlModifier | Qt::MetaModifier, 26, 0, 0, QStringLiteral("é"), true);
        QApplication::sendEvent(handle(), &held);
    };
    holds(QEvent::KeyPress), holds(QEvent::KeyRelease);
    EXPECT_EQ(words(), (Told{"key U+e9 c26 control command repeats", "up c26 repeats"}));
}

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

    (void)shows<Toy>(Size{1500, 1500});
    type("z");
    EXPECT_EQ(form.control.Text, "Anne") << "another form is active";
    click(form, 150, 110), type("z");
    EXPECT_EQ(form.control.Text, "Annez");
    EXPECT_EQ(desktop_.active(), &form);
}

TEST_F(QtAdapterTest, AnEntryOfADropDownListIsChosenAlsoWhenTheBoxShowsIt) {
    auto& form = shows<Holding<ComboBox>>(Size{3000, 555}, ListBox::Style{comic(15.75)});
    form.control.on_click = [&] { form.told.push_back(form.control.Text); };
    form.control.on_key_press = [](KeyPress& press) { press.swallow(); };
    form.control.fill({"Ann", "Ben", "A name that is a good deal longer than the box"});
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
    turn_wheel(at(form, 150, 110));
    EXPECT_EQ(field<QComboBox>().currentText(), "Ben") << "a wheel that turns by chance does not";
    form.control.Text = "0", settle();
    const QImage of_nobody = shot();
    form.control.Text = "", settle();
    EXPECT_NE(shot(), of_nobody) << "the box shows also what is not in the list";
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

    for (int i = 4; i < 40; ++i) form.control.add(std::to_string(i) + ". Another");
    for (const int height : {720, 768, 900}) {
        screen_is(1024, height);
        for (int i = 0; i < 39; ++i) {
            const QRect place = list.visualRect(list.model()->index(i, 0));
            EXPECT_TRUE(place.top() >= list.viewport()->height() || place.bottom() < list.viewport()->height())
                << "row " << i << " is cut";
        }
    }
    turn_wheel(row(1));
    EXPECT_LT(list.visualRect(list.model()->index(0, 0)).top(), 0) << "a wheel scrolls a list";
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
    choosing.control.fill({"Ann"}), choosing.control.on_click = [&] { go(choosing); };
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

TEST_F(QtAdapterTest, ADraggedTileFollowsThePointerWithTheFaceThatItHas) {
    draw_picture("a.bmp", {44, 40}, Qt::red), draw_picture("b.bmp", {44, 40}, Qt::blue);
    auto& form = shows<Holding<PictureBox>>(Size{660, 600}, kWhite, DragMode::Automatic);
    form.control.Picture = picture("a.bmp"), settle();
    press(form, 120, 120);
    move(form, 300, 300), settle();
    EXPECT_EQ(seen(form, 300, 300), QColor(Qt::red));
    EXPECT_EQ(seen(form, 110, 110), QColor(Qt::red)) << "the tile itself stays";
    EXPECT_EQ(window().cursor().shape(), Qt::ClosedHandCursor);
    form.control.Picture = picture("b.bmp"), settle();  // it was typed, and bears the next letter
    EXPECT_EQ(seen(form, 300, 300), QColor(Qt::blue));
    release(form, 300, 300), settle();
    EXPECT_EQ(seen(form, 300, 300), QColor(Qt::yellow));
}

struct TwoClocks : Toy {
    using Toy::Toy;
    int ticks = 0, later_ticks = 0;
    Timer first{*this, std::chrono::milliseconds{1}, [this] { ++ticks, first.disable(); }};
    Timer second{*this, std::chrono::milliseconds{1}, [this] { ++later_ticks; }};
};

TEST_F(QtAdapterTest, ATimerThatIsStoppedInItsTickTicksNoMore) {
    auto& form = shows<TwoClocks>();
    form.first.enable(), form.second.enable();
    EXPECT_TRUE(QTest::qWaitFor([&] { return form.ticks > 0 && form.later_ticks > 5; }));
    EXPECT_EQ(form.ticks, 1);
}

TEST(QtClock, WritesADateAsTheCountryDoes) {
    const QLocale before;
    for (const auto& [country, written] :
         {std::pair{"en_GB", "09/03/2026"}, {"en_US", "3/9/26"}, {"de_DE", "09.03.26"}, {"C", "09/03/2026"}}) {
        QLocale::setDefault(QLocale(country));
        EXPECT_EQ(QtClock().short_date(std::chrono::year{2026} / 3 / 9), written) << country;
    }
    QLocale::setDefault(before);
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
