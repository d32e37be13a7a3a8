#pragma once

#include <QRectF>
#include <QSizeF>

#include "core/key_pictures.h"

class QPainter;

namespace marrowfen {

/// All in design pixels: what a cap covers, and the flat part that it is read on.
constexpr QSizeF kCapSize{44, 40};
constexpr QRectF kCapTop{2.75, 2, 38.5, 32.5};

/// Draws an empty cap, its corners left as they are.
void draw_key_cap(QPainter& painter, CapKind kind);

}  // namespace marrowfen
