#include "platform/qt/window.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QIcon>
#include <QScreen>
#include <QTimer>
#include <QWindow>
#include <array>
#include <chrono>
#include <string>
#include <utility>

#include "platform/qt/pictures.h"

namespace marrowfen {

namespace {

constexpr std::array kIconSizes{16, 32, 48, 128};

QIcon program_icon(const Files& files) {
    QIcon icon;
    for (const int size : kIconSizes) {
        const auto file = files.find(files.program_folder() + "\\Artwork\\Icon\\" + std::to_string(size) + ".png");
        if (file) icon.addPixmap(QPixmap::fromImage(read_png(*file)));
    }
    return icon;
}

}  // namespace

Window::Window(const Files& files) : files_(files) {
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    setWindowTitle(QStringLiteral("Marrowfen"));
    QPalette yellow;
    yellow.setColor(QPalette::Window, Qt::yellow);  // until the backdrop is painted
    setPalette(yellow);
}

void Window::fill_screen() {
    create();
    follow_screen();
    connect(windowHandle(), &QWindow::screenChanged, this, [this] {
        follow_screen();
        if (on_resized) on_resized();
    });
    showFullScreen();
    setWindowIcon(program_icon(files_));  // while the window system opens the window
}

void Window::come_to_front(std::function<void(bool is_in_front)> answer) {
    constexpr std::chrono::milliseconds kPatience{1500};
    raise();
    activateWindow();
    QTimer::singleShot(kPatience, this, [this, answer = std::move(answer)] { answer(isActiveWindow()); });
}

// A window manager keeps a full-screen window in the size of its screen; where there is none we do. A Wayland client
// has no say in this.
void Window::follow_screen() {
    if (QGuiApplication::platformName().startsWith(u"wayland")) return;
    disconnect(following_);
    following_ = connect(screen(), &QScreen::geometryChanged, this, [this](const QRect& all) { setGeometry(all); });
    setGeometry(screen()->geometry());
}

void Window::resizeEvent(QResizeEvent*) {
    if (on_resized) on_resized();
}

void Window::closeEvent(QCloseEvent* event) { event->setAccepted(!on_close || on_close()); }

bool Window::focusNextPrevChild(bool) { return false; }

}  // namespace marrowfen
