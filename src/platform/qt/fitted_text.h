#pragma once

#include <QtCore/qnamespace.h>
#include <QFont>
#include <QRect>
#include <QString>

#include "platform/qt/ink.h"

class QPainter;

namespace marrowfen {

/// Draws a text that wraps at the width of `bounds`, in `font` or as much smaller as it must be to fit; below
/// `smallest` pixels it is shortened instead.
void draw_wrapped(QPainter& painter, const QRect& bounds, Qt::Alignment align, const QString& text, const QFont& font,
                  int smallest, const Ink& ink);

/// The same on one line, in the middle of the height where `align` says nothing of it, in the painter's pen where no
/// ink is given. A text that does not fit at `smallest` stands in full size and ends in an ellipsis.
void draw_line(QPainter& painter, const QRect& bounds, Qt::Alignment align, const QString& text, const QFont& font,
               int smallest, const std::optional<Ink>& ink = {});

}  // namespace marrowfen
