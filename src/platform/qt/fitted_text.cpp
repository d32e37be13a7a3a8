#include "platform/qt/fitted_text.h"

#include <QFontMetrics>
#include <QPainter>
#include <concepts>
#include <optional>

namespace marrowfen {

namespace {

constexpr int kNoLimit = 1 << 20;

QFont in_size(QFont font, int pixels) {
    font.setPixelSize(pixels);
    return font;
}

// The largest size that fits, by halving: a word on a large screen has hundreds of sizes to choose from.
std::optional<QFont> shrunk(const QFont& font, int smallest, const std::predicate<QFont> auto& fits) {
    if (fits(font)) return font;
    int too_large = font.pixelSize();
    int fitting = 0;
    for (int low = smallest; low < too_large;) {
        const int pixels = (low + too_large) / 2;
        if (fits(in_size(font, pixels))) {
            fitting = pixels;
            low = pixels + 1;
        } else {
            too_large = pixels;
        }
    }
    return fitting > 0 ? std::optional(in_size(font, fitting)) : std::nullopt;
}

bool fits_wrapped(const QString& text, const QFont& font, QSize size) {
    const QRect needed = QFontMetrics(font).boundingRect(QRect(0, 0, size.width(), kNoLimit), Qt::TextWordWrap, text);
    return needed.width() <= size.width() && needed.height() <= size.height();
}

QString shortened(const QString& text, const QFont& font, QSize size) {
    for (qsizetype length = text.size() - 1; length > 0; --length) {
        QString attempt = text.left(length) + u'…';
        if (fits_wrapped(attempt, font, size)) return attempt;
    }
    return text;
}

}  // namespace

void draw_wrapped(QPainter& painter, const QRect& bounds, Qt::Alignment align, const QString& text, const QFont& font,
                  int smallest, const Ink& ink) {
    if (text.isEmpty() || bounds.isEmpty()) return;
    const auto fitting = shrunk(font, smallest, [&](const QFont& f) { return fits_wrapped(text, f, bounds.size()); });
    const QFont used = fitting.value_or(in_size(font, smallest));
    painter.setFont(used);
    const QString shown = fitting ? text : shortened(text, used, bounds.size());
    draw_in(painter, ink, used.pixelSize(),
            [&] { painter.drawText(bounds, static_cast<int>(align) | Qt::TextWordWrap, shown); });
}

void draw_line(QPainter& painter, const QRect& bounds, Qt::Alignment align, const QString& text, const QFont& font,
               int smallest, const std::optional<Ink>& ink) {
    if (text.isEmpty() || bounds.isEmpty()) return;
    const auto fitting = shrunk(font, smallest, [&](const QFont& f) {
        const QFontMetrics metrics(f);
        return metrics.horizontalAdvance(text) <= bounds.width() && metrics.ascent() <= bounds.height();
    });
    const QFont used = fitting.value_or(font);
    painter.setFont(used);
    const QString shown = fitting ? text : QFontMetrics(used).elidedText(text, Qt::ElideRight, bounds.width());
    if ((align & Qt::AlignVertical_Mask) == 0) align |= Qt::AlignVCenter;
    draw_in(painter, ink.value_or(Ink(painter.pen().color())), used.pixelSize(),
            [&] { painter.drawText(bounds, static_cast<int>(align) | Qt::TextSingleLine, shown); });
}

}  // namespace marrowfen
