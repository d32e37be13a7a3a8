#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QImage>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>
#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/forms/desktop.h"
#include "platform/qt/qt_display.h"
#include "platform/system/disk_files.h"
#include "replay/event_line.h"
#include "temporary_folder.h"

namespace marrowfen {

using Told = std::vector<std::string>;

struct Toy : Form {
    explicit Toy(Desktop& the_desktop, Size size = {7500, 6000})
        : Form(the_desktop, {.size = size, .key_preview = KeyPreview::Yes, .back = kYellow}) {}
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
class ToyScreen : public testing::Test, InputSink {
protected:
    ToyScreen() {
        QFile::link(MARROWFEN_ARTWORK, QString::fromStdString((folder_.path() / "Artwork").string()));
        display_.attach(desktop_, *this);
    }

    template <class F, class... Args>
    F& shows(Args&&... args) {
        auto& form = static_cast<F&>(desktop_.load(std::make_unique<F>(desktop_, std::forward<Args>(args)...)));
        desktop_.show(form);
        settle();
        if (!std::exchange(has_a_size_, true)) screen_is(1024, 768);
        return form;
    }
    void screen_is(int width, int height) {
        window().resize(width, height);
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

    void draw_picture(const std::string& name, QSize size, QColor colour, int dots_per_metre = 3780) const {
        QImage image(size, QImage::Format_RGB32);
        image.fill(colour);
        image.setDotsPerMeterX(dots_per_metre);
        image.setDotsPerMeterY(dots_per_metre);
        ASSERT_TRUE(image.save(QString::fromStdString((folder_.path() / name).string())));
    }
    [[nodiscard]] Picture picture(const std::string& name) const {
        return Picture::file(files_.program_folder() + "\\" + name);
    }

    [[nodiscard]] static double scale() { return std::min(window().width() / 1024.0, window().height() / 768.0); }
    [[nodiscard]] static QPoint at(const Form& form, int x, int y) {
        return {qRound((form.Left / 15.0 + x) * scale()), qRound((form.Top / 15.0 + y) * scale())};
    }
    /// In dots of the screen, of which a unit of the window may have several.
    [[nodiscard]] static QPoint dot(const Form& form, double x, double y) {
        const double dots = scale() * window().devicePixelRatioF();
        return {qRound((form.Left / 15.0 + x) * dots), qRound((form.Top / 15.0 + y) * dots)};
    }
    [[nodiscard]] static QImage shot() { return window().grab().toImage(); }
    [[nodiscard]] static QColor seen(const Form& form, int x, int y) { return shot().pixelColor(dot(form, x, y)); }
    /// What differs from the form's yellow, inside a part of it.
    [[nodiscard]] static QRect ink(const Form& form, QRect part) {
        const QImage image = shot();
        QRect found;
        for (int y = part.top(); y <= part.bottom(); ++y) {
            for (int x = part.left(); x <= part.right(); ++x) {
                if (image.pixelColor(dot(form, x, y)) != QColor(Qt::yellow)) found |= QRect(x, y, 1, 1);
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
    void click(const Form& form, int x, int y) const { click(at(form, x, y)); }  // which the form may not outlive
    static void click(QPoint place) {
        QTest::mousePress(handle(), Qt::LeftButton, {}, place, kPause);
        QTest::mouseRelease(handle(), Qt::LeftButton, {}, place);
    }
    static void double_click(QPoint place) {
        click(place);
        QTest::mousePress(handle(), Qt::LeftButton, {}, place, 1);
        QTest::mouseRelease(handle(), Qt::LeftButton, {}, place, 1);
    }
    static void turn_wheel(QPoint place) {
        QWheelEvent turn(place, handle()->mapToGlobal(place), {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(handle(), &turn);
    }
    void type(Qt::Key key, Qt::KeyboardModifiers held = {}) { QTest::keyClick(handle(), key, held); }
    void type(const std::string& text) {
        for (const char character : text) QTest::keyClick(handle(), character);
    }

    /// What the desktop has been told since the last time, in the words of a recording.
    [[nodiscard]] Told words() { return std::exchange(words_, {}); }

private:
    Taker handle(const InputEvent& event) override {
        words_.push_back(to_text(event.what, forms_));
        return desktop_.handle(event);
    }

protected:
    TemporaryFolder folder_;
    const DiskFiles files_{folder_.path()};
    QtDisplay display_{files_};
    Desktop desktop_{display_};

private:
    FormSet forms_{desktop_};
    Told words_;
    bool has_a_size_ = false;
};

}  // namespace marrowfen
