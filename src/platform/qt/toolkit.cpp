#include "platform/qt/toolkit.h"

#include <QApplication>

#include "platform/qt/house_style.h"

namespace marrowfen {

std::unique_ptr<QApplication> start_toolkit(int& argc, char** argv) {
    QApplication::setStyle(std::make_unique<HouseStyle>().release());  // set first, or Qt loads the desktop's as well
    auto toolkit = std::make_unique<QApplication>(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Marrowfen"));
    QGuiApplication::setDesktopFileName(QStringLiteral("marrowfen"));
    QApplication::setEffectEnabled(Qt::UI_AnimateCombo, false);
    return toolkit;
}

}  // namespace marrowfen
