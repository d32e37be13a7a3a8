#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>
#include <QWindow>
#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/forms/desktop.h"
#include "platform/qt/qt_display.h"
#include "platform/system/disk_files.h"

namespace marrowfen {

using Told = std::vector<std::string>;

struct Toy : Form {
    explicit Toy(Desktop& the_desktop, Size size = {7500, 6000})
        : Form(the_desktop, {.size = size, .key_preview = KeyPreview::Yes, .back = kYellow}) {}
    void key_down(const KeyEvent& event) override {
        if (event.key == Key::D && event.alt) told.emplace_back("Alt+D");
    }
    Told told;
};

/// A form with one control, which stands 100 pixels of the design from its upper left.
template <class C>
struct Holding : Toy {
    template <class... Args>
    explicit Holding(Desktop& the_desktop, Size size, Args&&... args)
        : Toy(the_desktop), control(*this, {1500, 1500, size.width, size.height}, std::forward<Args>(args)...) {}
    C control;
};

/// The real display on a screen that nobody sees, with forms that only tests know. Places on a form are pixels of the
/// design.
class ToyScreen : public testing::Test {
protected:
    ToyScreen() {
        QFile::link(MARROWFEN_ARTWORK, folder_.filePath("Artwork"));
        display_.attach(desktop_, desktop_);
    }

    template <class F, class... Args>
    F& shows(Args&&... args) {
        auto& form = static_cast<F&>(desktop_.load(std::make_unique<F>(desktop_, std::forward<Args>(args)...)));
        desktop_.show(form);
        settle();
        return form;
    }
    void screen_is(int width, int height) {
        window().resize(width, height);
        scale_ = std::min(width / 1024.0, height / 768.0);
        settle();
    }
    void settle() { display_.run_waiting_events(); }

    [[nodiscard]] static QWidget& window() {
        const auto windows = QApplication::topLevelWidgets();
        return **std::ranges::find(windows, "Marrowfen", &QWidget::windowTitle);
    }
    [[nodiscard]] static QWindow* handle() { return window().windowHandle(); }
    template <class W>
    [[nodiscard]] static W& field() {
        return *window().findChild<W*>();
    }

    void draw_picture(const QString& name, QSize size, QColor colour, int dots_per_metre = 3780) const {
        QImage image(size, QImage::Format_RGB32);
        image.fill(colour);
        image.setDotsPerMeterX(dots_per_metre);
        image.setDotsPerMeterY(dots_per_metre);
        ASSERT_TRUE(image.save(folder_.filePath(name)));
    }
    [[nodiscard]] Picture picture(const std::string& name) const {
        return Picture::file(files_.program_folder() + "\\" + name);
    }

    [[nodiscard]] QPoint at(const Form& form, int x, int y) const {
        return {qRound((form.Left / 15.0 + x) * scale_), qRound((form.Top / 15.0 + y) * scale_)};
    }
    [[nodiscard]] QColor seen(const Form& form, int x, int y) const {
        return window().grab().toImage().pixelColor(at(form, x, y));
    }
    /// What differs from the form's yellow, inside a part of it.
    [[nodiscard]] QRect ink(const Form& form, QRect part) const {
        const QImage image = window().grab().toImage();
        QRect found;
        for (int y = part.top(); y <= part.bottom(); ++y) {
            for (int x = part.left(); x <= part.right(); ++x) {
                if (image.pixelColor(at(form, x, y)) != QColor(Qt::yellow)) found |= QRect(x, y, 1, 1);
            }
        }
        return found;
    }

    static constexpr int kPause = 2 * static_cast<int>(Mouse::kDoubleClickTime.count());  // only the events count it
    void press(const Form& form, int x, int y) {
        QTest::mousePress(handle(), Qt::LeftButton, {}, at(form, x, y), kPause);
    }
    void release(const Form& form, int x, int y) { QTest::mouseRelease(handle(), Qt::LeftButton, {}, at(form, x, y)); }
    void move(const Form& form, int x, int y) { QTest::mouseMove(handle(), at(form, x, y)); }
    void click(const Form& form, int x, int y) { press(form, x, y), release(form, x, y); }
    static void click(QPoint place) {
        QTest::mousePress(handle(), Qt::LeftButton, {}, place, kPause);
        QTest::mouseRelease(handle(), Qt::LeftButton, {}, place);
    }
    static void double_click(QPoint place) {
        click(place);
        QTest::mousePress(handle(), Qt::LeftButton, {}, place, 1);
        QTest::mouseRelease(handle(), Qt::LeftButton, {}, place, 1);
    }
    void type(Qt::Key key, Qt::KeyboardModifiers held = {}) { QTest::keyClick(handle(), key, held); }
    void type(const std::string& text) {
        for (const char character : text) QTest::keyClick(handle(), character);
    }

    QTemporaryDir folder_;
    const DiskFiles files_{folder_.path().toStdString()};
    QtDisplay display_{files_};
    Desktop desktop_{display_};
    double scale_ = 800 / 1024.0;  // of the screen that this platform pretends to have
};

}  // namespace marrowfen
