#include "platform/qt/typefaces.h"

#include <QDir>
#include <QFontDatabase>

namespace marrowfen {

namespace {

void load_fonts(const Files& files) {
    const auto folder = files.find(files.program_folder() + "\\Fonts");
    if (!folder) return;
    const QDir fonts(QString::fromStdU16String(folder->u16string()));
    for (const QString& name : fonts.entryList({"*.ttf", "*.otf"}, QDir::Files)) {
        QFontDatabase::addApplicationFont(fonts.filePath(name));
    }
}

QString first_installed(const QStringList& families) {
    for (const QString& family : families) {
        if (QFontDatabase::hasFamily(family)) return family;
    }
    return families.last();
}

}  // namespace

Typefaces::Typefaces(const Files& files) {
    load_fonts(files);
    caption_ = first_installed({"Comic Sans MS", "Comic Neue"});
    letters_ = first_installed({"Andika", caption_});
}

QFont Typefaces::caption(const Font& font, int pixels) const {
    QFont face(caption_);
    face.setStyleHint(QFont::SansSerif);
    face.setPixelSize(pixels);
    face.setBold(font.weight == Weight::Bold);
    face.setUnderline(font.underline == Underline::Yes);
    return face;
}

QFont Typefaces::letters(int pixels) const {
    QFont face(letters_);
    face.setStyleHint(QFont::SansSerif);
    face.setPixelSize(pixels);
    return face;
}

}  // namespace marrowfen
