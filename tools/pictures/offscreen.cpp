#include "offscreen.h"

#include <QtGlobal>
#include <utility>

namespace marrowfen {

Offscreen::Offscreen(std::string program)
    : program_(std::move(program)), arguments_{program_.data(), option_.data(), platform_.data()} {
    // What the toolkit says about a machine without a desktop session is no news at a build.
    const QtMessageHandler usual = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    toolkit_ = std::make_unique<QGuiApplication>(count_, arguments_.data());
    qInstallMessageHandler(usual);
}

}  // namespace marrowfen
