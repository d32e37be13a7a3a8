#include "key_cap.h"

#include <QColor>
#include <QLinearGradient>
#include <QPainter>
#include <QPen>

#include "ink.h"

namespace marrowfen {
namespace {

struct CapLook {
    QColor top, top_foot, lip, lip_foot, bar;  // bar: invalid for none
};

CapLook look_of(CapKind kind) {
    switch (kind) {
        case CapKind::Tile:
            return {"#FFF6E0", "#FFEDC6", "#E8C48A", "#D3A862", {}};
        case CapKind::RightFace:
            return {"#D6ECFE", "#C2E1FB", "#2A6DC4", "#1F5FB8", "#FFFFFF"};
        case CapKind::RightTile:
            return {"#AEDAFA", "#98CFF8", "#1F5FB8", "#163F80", "#FFFFFF"};
        case CapKind::Face:
            break;
    }
    return {"#FFFFFF", "#F4F6F9", "#C3CBD6", "#A9B3C0", {}};
}

QLinearGradient downwards(const QRectF& area, const QColor& head, const QColor& foot) {
    QLinearGradient gradient(area.topLeft(), area.bottomLeft());
    gradient.setColorAt(0, head);
    gradient.setColorAt(1, foot);
    return gradient;
}

}  // namespace

void draw_key_cap(QPainter& painter, CapKind kind) {
    constexpr qreal kLine = 1.5;
    constexpr QRectF kBody(kLine / 2, kLine / 2, 44 - kLine, 40 - kLine);
    constexpr QRectF kBar(14, 35.6, 16, 1.9);
    const CapLook look = look_of(kind);

    painter.setPen(QPen(kInk, kLine));
    painter.setBrush(downwards(kBody, look.lip, look.lip_foot));
    painter.drawRoundedRect(kBody, 7, 7);
    painter.setPen(Qt::NoPen);
    painter.setBrush(downwards(kCapTop, look.top, look.top_foot));
    painter.drawRoundedRect(kCapTop, 5.5, 5.5);
    if (look.bar.isValid()) {
        painter.setBrush(look.bar);
        painter.drawRoundedRect(kBar, kBar.height() / 2, kBar.height() / 2);
    }
}

}  // namespace marrowfen
