#include "platform/qt/typefaces.h"

#include <QFontDatabase>
#include <QStringList>
#include <filesystem>
#include <system_error>

#include "platform/system/small_file.h"

namespace marrowfen {

namespace {

constexpr std::uintmax_t kMostBytes = 20'000'000;

void load_fonts(const Files& files) {
    const auto folder = files.find(files.program_folder() + "\\Fonts");
    if (!folder) return;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(*folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const auto kind = entry->path().extension();
        if (kind != ".ttf" && kind != ".otf") continue;
        if (!is_small_file(entry->path(), kMostBytes)) continue;  // the start waits for it
        QFontDatabase::addApplicationFont(QString::fromStdU16String(entry->path().u16string()));
    }
}

QString first_installed(const QStringList& families) {
    for (const QString& family : families) {
        if (QFontDatabase::hasFamily(family)) return family;
    }
    return families.last();
}

QFont face_of(const QString& family, int pixels) {
    QFont face(family);
    face.setStyleHint(QFont::SansSerif);
    face.setPixelSize(pixels);
    // Who learns to spell must see two f's, not a ligature. Qt leaves ligatures out where letters are spaced.
    constexpr double kLeastSpacing = 1.0 / 64;
    face.setLetterSpacing(QFont::AbsoluteSpacing, kLeastSpacing);
    return face;
}

}  // namespace

Typefaces::Typefaces(const Files& files) {
    load_fonts(files);
    caption_ = first_installed({"Comic Sans MS", "Comic Neue"});
    letters_ = first_installed({"Andika", caption_});
}

QFont Typefaces::caption(const Font& font, int pixels) const {
    QFont face = face_of(caption_, pixels);
    face.setBold(font.weight == Weight::Bold);
    face.setUnderline(font.underline == Underline::Yes);
    return face;
}

QFont Typefaces::letters(int pixels) const { return face_of(letters_, pixels); }

}  // namespace marrowfen
