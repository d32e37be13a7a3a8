#pragma once

#include <QColor>
#include <QPalette>
#include <QProxyStyle>
#include <cstdint>

#include "platform/forms/look.h"

namespace marrowfen {

namespace colours {
constexpr QColor kInk(0x1B, 0x2A, 0x4A);
constexpr QColor kDeepBlue(0x16, 0x3F, 0x80);
constexpr QColor kSky(0x5D, 0xB0, 0xEE);
constexpr QColor kPaleSky(0xD6, 0xEC, 0xFC);
}  // namespace colours

[[nodiscard]] inline QColor to_qt(Colour colour) { return {colour.red(), colour.green(), colour.blue()}; }

/// What a field is painted with: its own colours, and a selection that can be read on any of them.
[[nodiscard]] QPalette field_palette(Colour text, Colour base);

/// A white arrow head on a blue button, as on drop-down lists and scroll bars.
enum class Arrow : std::uint8_t { Up, Down };
void draw_arrow_button(QPainter& painter, const QRectF& button, Arrow arrow);

/// The desktop's plain style, with scroll bars for small hands and drop-down lists that drop down.
class HouseStyle final : public QProxyStyle {
public:
    HouseStyle();
    /// In pixels.
    void set_widths(int scroll_bar, int text_cursor) {
        scroll_bar_width_ = scroll_bar;
        text_cursor_width_ = text_cursor;
    }

    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    [[nodiscard]] int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                                QStyleHintReturn* returned) const override;

private:
    int scroll_bar_width_ = 24;
    int text_cursor_width_ = 2;
};

}  // namespace marrowfen
