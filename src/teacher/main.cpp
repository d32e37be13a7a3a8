#include <QApplication>
#include <QCommandLineParser>
#include <cstdlib>

#include "teacher/teacher_window.h"

int main(int argc, char** argv) {
    const QApplication toolkit(argc, argv);
    QApplication::setApplicationName(QStringLiteral("marrowfen-teacher"));
    QApplication::setApplicationDisplayName(QStringLiteral("Marrowfen"));
    QApplication::setApplicationVersion(QStringLiteral(MARROWFEN_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("marrowfen-teacher"));
    QCommandLineParser options;
    options.setApplicationDescription(
        QStringLiteral("Looks after pupils, results and words of Marrowfen, which may go on being played."));
    options.addHelpOption();
    options.addVersionOption();
    options.process(toolkit);
    marrowfen::TeacherWindow window(QApplication::applicationDirPath().toStdString());
    window.show();
    return window.open() ? QApplication::exec() : EXIT_FAILURE;
}
