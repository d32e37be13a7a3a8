#pragma once

#include <QImage>
#include <QPixmap>
#include <QSize>
#include <filesystem>
#include <string>

#include "platform/files.h"
#include "platform/forms/controls.h"
#include "platform/qt/scale.h"
#include "platform/qt/typefaces.h"

namespace marrowfen {

// Null when a file can't be read as that. A reader that may guess the format loads a library for each one there is.
[[nodiscard]] QImage read_png(const std::filesystem::path& file);
/// The byte of a palette entry that the format leaves unused, and other programs write as 0, is its opacity in a key
/// picture of ours. A palette in which all are 0 is opaque.
[[nodiscard]] QImage read_bitmap(const std::filesystem::path& file);

/// Reads a picture, anew each time, and brings it to the size that it has on the screen. One that can't be read whole,
/// or has more than 20 MB, comes out as its base name in letters on a light ground. The program's own pictures were
/// drawn in several sizes when it was built: the one that fits the screen is shown as it is, and where none does a
/// larger one is scaled down.
class Pictures {
public:
    Pictures(const Files& files, const Typefaces& faces) : files_(files), faces_(faces) {}

    /// `bounds` in device pixels. Stretched, the result fills them; otherwise it has its natural size, but for what
    /// lies outside of them. Null when there is nothing to show.
    [[nodiscard]] QPixmap render(const Picture& picture, Stretch stretch, QSize bounds, const Scale& scale) const;

private:
    [[nodiscard]] QImage artwork(const std::string& name, QSize bounds) const;
    [[nodiscard]] QImage file(const std::string& path) const;
    [[nodiscard]] QPixmap letters(const QString& base_name, QSize bounds) const;

    const Files& files_;
    const Typefaces& faces_;
};

}  // namespace marrowfen
