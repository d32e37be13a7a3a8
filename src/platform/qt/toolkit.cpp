#include "platform/qt/toolkit.h"

#include <QApplication>

#include "platform/qt/house_style.h"

namespace marrowfen {

std::unique_ptr<QApplication> start_toolkit(int& argc, char** argv) {
    // Qt owns it. Once Qt runs it would have loaded the desktop's own style as well.
    QApplication::setStyle(new HouseStyle);
    auto toolkit = std::make_unique<QApplication>(argc, argv);  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks)
    QApplication::setApplicationName(QStringLiteral("Marrowfen"));
    QGuiApplication::setDesktopFileName(QStringLiteral("marrowfen"));
    QApplication::setEffectEnabled(Qt::UI_AnimateCombo, false);
    return toolkit;
}

}  // namespace marrowfen
