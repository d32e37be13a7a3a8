#pragma once

#include <QPainterPath>
#include <QRawFont>
#include <filesystem>

namespace marrowfen {

/// Letters as they stand on a key cap: all capitals and digits of one size on one line, all small
/// letters of one size on another, so that a child sees what reaches up and what hangs down. A zero has
/// a stroke, an O has none.
class Lettering {
public:
    /// Throws Failure where the file holds no typeface. Needs a QGuiApplication.
    explicit Lettering(const std::filesystem::path& typeface);

    /// The outline in design pixels of the cap. Throws Failure for a letter that the typeface lacks.
    [[nodiscard]] QPainterPath outline(char character) const;

private:
    [[nodiscard]] QPainterPath raw_outline(char character) const;

    QRawFont font_;
    qreal capital_scale_ = 0, small_scale_ = 0;        // from the typeface's units to design pixels
    qreal capital_baseline_ = 0, small_baseline_ = 0;  // in design pixels from the cap's upper edge
};

}  // namespace marrowfen
