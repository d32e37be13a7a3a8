#include "platform/qt/toolkit.h"

#include <QApplication>

#include "platform/qt/house_style.h"

// In a library the drawings are linked only where somebody names them, which the macro can't do in a namespace.
static void link_drawings() { Q_INIT_RESOURCE(artwork); }

namespace marrowfen {

std::unique_ptr<QApplication> start_toolkit(int& argc, char** argv) {
    link_drawings();
    // Qt owns it. Once Qt runs it would have loaded the desktop's own style as well.
    QApplication::setStyle(new HouseStyle);
    auto toolkit = std::make_unique<QApplication>(argc, argv);  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks)
    QApplication::setApplicationName(QStringLiteral("Marrowfen"));
    QGuiApplication::setDesktopFileName(QStringLiteral("marrowfen"));
    QApplication::setEffectEnabled(Qt::UI_AnimateCombo, false);
    return toolkit;
}

}  // namespace marrowfen
