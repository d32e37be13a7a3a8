#include "platform/qt/window.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QIcon>
#include <QPainter>
#include <QScreen>
#include <QSvgRenderer>
#include <QWindow>

namespace marrowfen {

namespace {

QIcon program_icon() {
    QIcon icon;
    for (const int size : {16, 32, 48, 256}) {
        // Its M would be an H at the smallest size, which has a drawing of its own.
        QSvgRenderer drawing(size == 16 ? QStringLiteral(":/artwork/icon-small.svg")
                                        : QStringLiteral(":/artwork/icon.svg"));
        if (!drawing.isValid()) continue;
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        drawing.render(&painter);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

}  // namespace

Window::Window() {
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
    setWindowIcon(program_icon());  // while the window system opens the window
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
