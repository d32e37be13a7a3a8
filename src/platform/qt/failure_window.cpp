#include "platform/qt/failure_window.h"

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/qt/house_style.h"
#include "platform/qt/scale.h"
#include "platform/qt/typefaces.h"

namespace marrowfen {

void show_start_failure(const Files& files, const std::string& sentence) {
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
    auto* exit = new QPushButton(QStringLiteral("Exit"), &window);
    exit->setFont(faces.caption(comic_bold(16), static_cast<int>(design_pixels(16))));
    exit->setDefault(true);
    exit->setFocus();
    QObject::connect(exit, &QPushButton::clicked, &window, &QDialog::accept);

    auto* rows = new QVBoxLayout(&window);
    rows->setContentsMargins(32, 32, 32, 24);
    rows->setSpacing(24);
    rows->addWidget(text);
    rows->addWidget(exit, 0, Qt::AlignHCenter);
    window.exec();
}

}  // namespace marrowfen
