#pragma once

#include <QColor>
#include <functional>
#include <optional>

class QPainter;

namespace marrowfen {

/// From 1, no difference, to 21, black on white: as the standards of accessibility reckon it.
[[nodiscard]] double contrast(const QColor& one, const QColor& other);

/// What text is drawn with. The colours of some designs leave it hard to read: such text keeps its colour and gets an
/// outline in a shade of it that stands out from what lies behind.
struct Ink {
    static constexpr double kReadable = 4.5;
    explicit Ink(const QColor& of_text) : text(of_text) {}
    Ink(const QColor& of_text, const QColor& behind);
    QColor text;
    std::optional<QColor> outline;
};

/// Draws text as its own outline, if it needs one, and upon that as itself. `draw` draws it with the pen of the
/// painter; `size` is that of the font in pixels.
void draw_in(QPainter& painter, const Ink& ink, int size, const std::function<void()>& draw);

/// The outline alone, if there is one.
void draw_outline(QPainter& painter, const Ink& ink, int size, const std::function<void()>& draw);

}  // namespace marrowfen
