#pragma once

#include <QPixmap>
#include <QRegion>
#include <QSize>
#include <unordered_map>

#include "platform/forms/form.h"
#include "platform/qt/pictures.h"
#include "platform/qt/scale.h"
#include "platform/qt/typefaces.h"

class QPainter;

namespace marrowfen {

/// Ink reaches a little over the bounds of what is painted: the tail of a j, the outline of a shape.
[[nodiscard]] QRect with_overhang(const QRect& bounds, const Scale& scale);

/// Paints one form, all but its real widgets. It keeps each picture in the size in which it was last painted, so that
/// painting it again costs nothing; another picture, another size or the end of the form drops it.
class FormPainter {
public:
    FormPainter(const Form& form, const Scale& scale, const Typefaces& faces, const Pictures& pictures)
        : form_(form), scale_(scale), faces_(faces), pictures_(pictures) {}

    /// The painter works in device pixels of the whole window, `dirty` is in the window's coordinates.
    void paint(QPainter& painter, const QRegion& dirty);

private:
    struct Kept {
        Picture picture;
        QSize bounds;
        QPixmap pixmap;
    };

    void paint(QPainter& painter, Control& control, const QRect& bounds);
    void paint_label(QPainter& painter, const Label& label, const QRect& bounds) const;
    void paint_text_box(QPainter& painter, const TextBox& box, const QRect& bounds) const;
    void paint_shape(QPainter& painter, const Shape& shape, const QRect& bounds) const;
    void paint_picture(QPainter& painter, const Control& control, const Picture& picture, Stretch stretch,
                       const QRect& bounds);
    void paint_dial(QPainter& painter, const Dial& dial) const;
    [[nodiscard]] QRect on_screen(const Rect& on_form) const;
    [[nodiscard]] Colour behind(const Label& label) const;
    [[nodiscard]] int smallest_text() const { return scale_.device_pixels(6); }

    const Form& form_;
    const Scale& scale_;
    const Typefaces& faces_;
    const Pictures& pictures_;
    std::unordered_map<const Control*, Kept> kept_;
};

}  // namespace marrowfen
