#pragma once

#include <QImage>
#include <QPixmap>
#include <QSize>

#include "platform/files.h"
#include "platform/forms/controls.h"
#include "platform/qt/scale.h"
#include "platform/qt/typefaces.h"

namespace marrowfen {

/// Reads a picture, anew each time, and brings it to the size that it has on the screen. One that can't be read whole,
/// or has more than 20 MB, comes out as its base name in letters on a light ground.
class Pictures {
public:
    Pictures(const Files& files, const Typefaces& faces) : files_(files), faces_(faces) {}

    /// `bounds` in device pixels. Stretched, the result fills them; otherwise it has its natural size, but for what
    /// lies outside of them. Null when there is nothing to show.
    [[nodiscard]] QPixmap render(const Picture& picture, Stretch stretch, QSize bounds, const Scale& scale) const;

private:
    [[nodiscard]] QPixmap artwork(const std::string& name, Stretch stretch, QSize bounds, const Scale& scale) const;
    [[nodiscard]] QPixmap file(const std::string& path, Stretch stretch, QSize bounds, const Scale& scale) const;
    [[nodiscard]] QPixmap letters(const QString& base_name, QSize bounds) const;

    const Files& files_;
    const Typefaces& faces_;
};

}  // namespace marrowfen
