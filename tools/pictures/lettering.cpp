#include "lettering.h"

#include <QByteArray>
#include <QPainterPathStroker>
#include <QPolygonF>
#include <QString>
#include <QTransform>
#include <cctype>
#include <string>

#include "../failure.h"
#include "disk.h"
#include "key_cap.h"

namespace marrowfen {
namespace {

constexpr qreal kOutlineSize = 1000;  // large enough that the outline keeps its curves
constexpr qreal kCapitalHeight = 24;
constexpr qreal kRoomForTail = 0.5;  // a Q keeps its tail on the top of the cap
constexpr qreal kSmallHeight = 29;   // from the top of an f down to the foot of a p

/// Where the weight of a letter lies: an L is heavy at its left, an F too.
qreal middle_of_weight(const QPainterPath& outline) {
    qreal area = 0;
    qreal moment = 0;
    for (const QPolygonF& ring : outline.toSubpathPolygons()) {  // a hole turns the other way round and counts off
        for (qsizetype i = 0; i + 1 < ring.size(); ++i) {
            const qreal cross = ring[i].x() * ring[i + 1].y() - ring[i + 1].x() * ring[i].y();
            area += cross / 2;
            moment += cross * (ring[i].x() + ring[i + 1].x()) / 6;
        }
    }
    return moment / area;
}

/// Neither the box alone nor the weight alone looks centred: the eye settles between them.
qreal optical_middle(const QPainterPath& outline) {
    constexpr qreal kShareOfWeight = 0.3;
    return (1 - kShareOfWeight) * outline.boundingRect().center().x() + kShareOfWeight * middle_of_weight(outline);
}

/// The stroke inside a zero, which tells it from an O on a key that stands alone. It ends in the ring, for
/// a longer one would make it yet another letter.
QPainterPath stroke_in_zero(const QRectF& zero) {
    constexpr qreal kWidth = 2.4;
    const QPointF reach(0.27 * zero.width(), -0.25 * zero.height());
    QPainterPath line(zero.center() - reach);
    line.lineTo(zero.center() + reach);
    QPainterPathStroker stroker;
    stroker.setWidth(kWidth);
    return stroker.createStroke(line);
}

}  // namespace

Lettering::Lettering(const std::filesystem::path& typeface) {
    const std::string bytes = read_bytes(typeface, "The typeface");
    font_.loadFromData(QByteArray::fromStdString(bytes), kOutlineSize, QFont::PreferNoHinting);
    if (!font_.isValid()) throw Failure("The typeface " + typeface.string() + " can't be read.");

    capital_scale_ = kCapitalHeight / raw_outline('H').boundingRect().height();
    capital_baseline_ = kCapTop.center().y() + kCapitalHeight / 2 - kRoomForTail;

    const qreal above = -raw_outline('f').boundingRect().top();
    const qreal below = raw_outline('p').boundingRect().bottom();
    small_scale_ = kSmallHeight / (above + below);
    small_baseline_ = kCapTop.center().y() - kSmallHeight / 2 + above * small_scale_;
}

QPainterPath Lettering::raw_outline(char character) const {
    const auto glyphs = font_.glyphIndexesForString(QString(QLatin1Char(character)));
    QPainterPath outline = glyphs.isEmpty() || glyphs[0] == 0 ? QPainterPath() : font_.pathForGlyph(glyphs[0]);
    outline.setFillRule(Qt::WindingFill);  // strokes that cross stay filled where they cross
    if (outline.isEmpty()) throw Failure(std::string("The typeface has no letter ") + character + ".");
    return outline;
}

QPainterPath Lettering::outline(char character) const {
    const bool small = std::islower(static_cast<unsigned char>(character)) != 0;
    const qreal scale = small ? small_scale_ : capital_scale_;
    const QPainterPath raw = raw_outline(character);
    const qreal left = kCapTop.center().x() - optical_middle(raw) * scale;
    const QPainterPath placed =
        QTransform(scale, 0, 0, scale, left, small ? small_baseline_ : capital_baseline_).map(raw);
    return character == '0' ? placed.united(stroke_in_zero(placed.boundingRect())) : placed;
}

}  // namespace marrowfen
