#pragma once

#include <QRectF>
#include <QSizeF>

class QPainter;

namespace marrowfen {

/// A tile differs a little from a key face, so that a pupil sees which keys are filled. The right hand's
/// caps are blue and carry a bar on a dark lip: they stand out by lightness too, not by colour alone.
enum class CapKind { Face, Tile, RightFace, RightTile };

/// All in design pixels: what a cap covers, and the flat part that it is read on.
constexpr QSizeF kCapSize{44, 40};
constexpr QRectF kCapTop{2.75, 2, 38.5, 32.5};

/// Draws an empty cap, its corners left as they are.
void draw_key_cap(QPainter& painter, CapKind kind);

}  // namespace marrowfen
