#include "platform/qt/house_style.h"

#include <QFontMetrics>
#include <QLineEdit>
#include <QPainter>
#include <QStyleOption>
#include <algorithm>

#include "platform/qt/ink.h"

namespace marrowfen {

QPalette field_palette(Colour text, Colour base) {
    QPalette palette;
    palette.setColor(QPalette::Text, to_qt(text));
    palette.setColor(QPalette::WindowText, colours::kInk);
    palette.setColor(QPalette::Base, to_qt(base));
    palette.setColor(QPalette::Window, to_qt(base));
    palette.setColor(QPalette::Button, colours::kSky);
    palette.setColor(QPalette::Highlight, colours::kDeepBlue);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

void draw_arrow_button(QPainter& painter, const QRectF& button, Arrow arrow) {
    painter.fillRect(button, colours::kDeepBlue);
    const double size = std::min(button.width(), button.height());
    const double half = arrow == Arrow::Down ? size / 5 : -size / 5;
    const QPointF tip = button.center() + QPointF(0, half / 2);
    painter.setPen(QPen(Qt::white, size / 14, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF{tip + QPointF(-half, -half), tip, tip + QPointF(half, -half)});
}

namespace {

// A text box draws its text itself, but for the outline; that has its place here, between the panel and the text.
void draw_outline_in(QPainter& painter, const QLineEdit& box) {
    const Ink ink(box.palette().color(QPalette::Text), box.palette().color(QPalette::Base));
    if (!ink.outline || box.hasSelectedText()) return;
    const QString& text = box.text();
    const QFontMetrics metrics(box.font());
    const int left = box.inputMethodQuery(Qt::ImCursorRectangle).toRect().center().x() -
                     metrics.horizontalAdvance(text.left(box.cursorPosition()));
    painter.save();
    painter.setClipRect(box.contentsRect());
    painter.setFont(box.font());
    draw_outline(painter, ink, box.font().pixelSize(), [&] {
        painter.drawText(QRect(left, 0, metrics.horizontalAdvance(text) + 1, box.height()),
                         static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter) | Qt::TextSingleLine, text);
    });
    painter.restore();
}

}  // namespace

HouseStyle::HouseStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

int HouseStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
        case PM_ScrollBarExtent:
            return scroll_bar_width_;
        case PM_ScrollBarSliderMin:
            return 2 * scroll_bar_width_;
        case PM_TextCursorWidth: {
            // The message's text box only holds the focus and is too narrow for a letter: nothing of it is to be seen.
            const bool holds_letters = option == nullptr || option->rect.width() >= scroll_bar_width_;
            return holds_letters ? text_cursor_width_ : 0;
        }
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

void HouseStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                    const QWidget* widget) const {
    const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control != CC_ScrollBar || bar == nullptr) {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        return;
    }
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->fillRect(bar->rect, colours::kPaleSky);
    draw_arrow_button(*painter, subControlRect(control, bar, SC_ScrollBarSubLine, widget), Arrow::Up);
    draw_arrow_button(*painter, subControlRect(control, bar, SC_ScrollBarAddLine, widget), Arrow::Down);
    const double margin = scroll_bar_width_ / 8.0;
    const QRectF slider = subControlRect(control, bar, SC_ScrollBarSlider, widget);
    painter->setPen(Qt::NoPen);
    painter->setBrush(colours::kDeepBlue);
    painter->drawRoundedRect(slider.adjusted(margin, margin, -margin, -margin), margin, margin);
    painter->restore();
}

void HouseStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const auto* box = qobject_cast<const QLineEdit*>(widget);
    if (element == PE_PanelLineEdit && box != nullptr) draw_outline_in(*painter, *box);
}

int HouseStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* returned) const {
    return hint == SH_ComboBox_Popup ? 0 : QProxyStyle::styleHint(hint, option, widget, returned);
}

}  // namespace marrowfen
