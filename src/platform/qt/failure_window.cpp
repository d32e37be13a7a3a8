#include "platform/qt/failure_window.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <chrono>

#include "platform/qt/house_style.h"
#include "platform/qt/scale.h"
#include "platform/qt/typefaces.h"

namespace marrowfen {

namespace {

constexpr std::chrono::seconds kBetweenTries{2};

}  // namespace

bool show_start_failure(const Files& files, const std::string& sentence,
                        const std::function<std::optional<std::string>()>& try_again) {
    const Typefaces faces(files);

    QDialog window;
    window.setWindowTitle(QStringLiteral("Marrowfen"));
    QPalette palette;
    palette.setColor(QPalette::Window, Qt::yellow);
    palette.setColor(QPalette::WindowText, colours::kInk);
    palette.setColor(QPalette::Button, colours::kDeepBlue);
    palette.setColor(QPalette::ButtonText, Qt::white);
    window.setPalette(palette);

    auto* text = new QLabel(QString::fromStdString(sentence), &window);
    text->setTextFormat(Qt::PlainText);
    text->setFont(faces.caption(comic(18), static_cast<int>(design_pixels(18))));
    text->setWordWrap(true);
    text->setMinimumWidth(560);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse);  // to be sent to whoever looks after the computer
    const auto button = [&](const QString& caption) {
        auto* made = new QPushButton(caption, &window);
        made->setFont(faces.caption(comic_bold(16), static_cast<int>(design_pixels(16))));
        return made;
    };
    const auto once_more = [&] {
        const auto reason = try_again();
        if (reason) text->setText(QString::fromStdString(*reason));
        if (!reason) window.accept();
    };
    auto* again = button(QStringLiteral("Try again"));
    QObject::connect(again, &QPushButton::clicked, &window, once_more);
    auto* exit = button(QStringLiteral("Exit"));
    exit->setDefault(true);
    exit->setFocus();
    QObject::connect(exit, &QPushButton::clicked, &window, &QDialog::reject);
    QTimer now_and_then;
    QObject::connect(&now_and_then, &QTimer::timeout, &window, once_more);
    now_and_then.start(kBetweenTries);

    auto* rows = new QVBoxLayout(&window);
    rows->setContentsMargins(32, 32, 32, 24);
    rows->setSpacing(24);
    rows->addWidget(text);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(24);
    buttons->addStretch();
    buttons->addWidget(again);
    buttons->addWidget(exit);
    buttons->addStretch();
    rows->addLayout(buttons);
    return window.exec() == QDialog::Accepted;
}

}  // namespace marrowfen
