#include "platform/qt/form_painter.h"

#include <QPainter>
#include <QPainterPath>

#include "platform/match.h"
#include "platform/qt/fitted_text.h"
#include "platform/qt/house_style.h"

namespace marrowfen {

namespace {

Qt::Alignment qt_alignment(Align align) {
    switch (align) {
        case Align::Left:
            return Qt::AlignLeft | Qt::AlignTop;
        case Align::Centre:
            return Qt::AlignHCenter | Qt::AlignTop;
        case Align::Middle:
            break;
    }
    return Qt::AlignCenter;
}

// A rectangle whose line lies wholly inside.
QRectF inside(const QRect& bounds, double line) {
    return QRectF(bounds).adjusted(line / 2, line / 2, -line / 2, -line / 2);
}

QPen line(const QColor& colour, double width) { return {colour, width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin}; }

}  // namespace

QRect with_overhang(const QRect& bounds, const Scale& scale) {
    constexpr double kMost = 4;
    const int over = scale.device_pixels(kMost);
    return bounds.adjusted(-over, -over, over, over);
}

QRect FormPainter::on_screen(const Rect& on_form) const {
    return scale_.device({form_.Left + on_form.left, form_.Top + on_form.top, on_form.width, on_form.height});
}

void FormPainter::paint(QPainter& painter, const QRegion& dirty) {
    painter.setRenderHint(QPainter::Antialiasing);
    const QRect whole = scale_.device(form_.bounds());
    Rect filled = form_.bounds();
    filled.top += form_.design().bare_top;
    filled.height -= form_.design().bare_top;
    painter.fillRect(scale_.device(filled), to_qt(form_.design().back));
    if (form_.design().border == Border::Thin) {
        const int width = scale_.device_pixels(1);
        painter.setPen(line(colours::kInk, width));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(inside(whole, width));
    }
    for (Control* control : form_.controls()) {
        const QRect bounds = on_screen(control->bounds());
        if (control->Visible && dirty.intersects(scale_.widget(with_overhang(bounds, scale_)))) {
            paint(painter, *control, bounds);
        }
    }
}

void FormPainter::paint(QPainter& painter, Control& control, const QRect& bounds) {
    std::visit(Match{
                   [&](const Label* label) { paint_label(painter, *label, bounds); },
                   [&](const Image* image) { paint_picture(painter, control, image->Picture, image->stretch, bounds); },
                   [&](const PictureBox* box) {
                       if (box->back) painter.fillRect(bounds, to_qt(*box->back));
                       paint_picture(painter, control, box->Picture, Stretch::Yes, bounds);
                   },
                   [&](const Shape* shape) { paint_shape(painter, *shape, bounds); },
                   [&](const Dial* dial) { paint_dial(painter, *dial); },
                   [&](const TextBox* box) {
                       if (!box->is_field()) paint_text_box(painter, *box, bounds);
                   },
                   [](const ListBox*) {},
                   [](const ComboBox*) {},
               },
               control.any());
}

void FormPainter::paint_label(QPainter& painter, const Label& label, const QRect& bounds) const {
    if (label.back) painter.fillRect(bounds, to_qt(*label.back));
    const QFont font = faces_.caption(label.font, scale_.device_pixels(design_pixels(label.font.points)));
    draw_wrapped(painter, bounds, qt_alignment(label.align), QString::fromStdString(label.Caption), font,
                 smallest_text(), {to_qt(label.ForeColor), to_qt(behind(label))});
}

Colour FormPainter::behind(const Label& label) const {
    if (label.back) return *label.back;
    Colour behind = form_.design().back;
    for (Control* control : form_.controls()) {
        if (control == &label) break;
        const auto* panel = as<Shape>(control);
        if (panel == nullptr || !panel->Visible || !panel->style.fill) continue;
        if (panel->bounds().contains(label.bounds().centre())) behind = *panel->style.fill;
    }
    return behind;
}

void FormPainter::paint_text_box(QPainter& painter, const TextBox& box, const QRect& bounds) const {
    const TextBox::Style& style = box.style;
    painter.fillRect(bounds, to_qt(style.back));
    const int width = scale_.device_pixels(1);
    if (style.framed) {
        const QRectF frame = inside(bounds, width);
        const QColor back = to_qt(style.back);
        painter.setPen(line(back.darker(115), width));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(frame);
        painter.setPen(line(back.darker(190), width));
        painter.drawPolyline(QPolygonF{frame.bottomLeft(), frame.topLeft(), frame.topRight()});
    }
    const int margin = style.framed ? 3 * width : width;
    const QFont font = faces_.caption(style.font, scale_.device_pixels(design_pixels(style.font.points)));
    // A little too long is better read a little smaller; far too long is shortened.
    const Qt::Alignment align = Qt::AlignLeft | (style.stand == TextBox::Stand::Top ? Qt::AlignTop : Qt::AlignVCenter);
    draw_line(painter, bounds.adjusted(margin, 0, -margin, 0), align, QString::fromStdString(box.Text), font,
              std::max(smallest_text(), font.pixelSize() * 3 / 4), Ink(to_qt(box.ForeColor), to_qt(style.back)));
}

void FormPainter::paint_shape(QPainter& painter, const Shape& shape, const QRect& bounds) const {
    const Shape::Style& style = shape.style;
    const int width = style.outline ? scale_.device_pixels(style.outline_pixels) : 0;
    painter.setPen(style.outline ? line(to_qt(*style.outline), width) : QPen(Qt::NoPen));
    painter.setBrush(style.fill ? QBrush(to_qt(*style.fill)) : QBrush(Qt::NoBrush));
    // The line runs along the edge, half of it on either side; an odd one lies on whole dots.
    const QRectF edge = inside(bounds, width % 2);
    const double corner = scale_.device(style.corner);
    if (corner > 0) {
        painter.drawRoundedRect(edge, corner, corner);
    } else {
        painter.drawRect(edge);
    }
}

void FormPainter::paint_picture(QPainter& painter, const Control& control, const Picture& picture, Stretch stretch,
                                const QRect& bounds) {
    Kept& kept = kept_[&control];
    if (kept.picture != picture || kept.bounds != bounds.size()) {
        kept = {picture, bounds.size(), pictures_.render(picture, stretch, bounds.size(), scale_)};
    }
    if (!kept.pixmap.isNull()) painter.drawPixmap(bounds.topLeft(), kept.pixmap);
}

void FormPainter::paint_dial(QPainter& painter, const Dial& dial) const {
    const Rect bounds = dial.bounds();
    const double radius = scale_.device(bounds.width / 2);
    const QPointF centre(scale_.device(form_.Left + bounds.centre().x), scale_.device(form_.Top + bounds.centre().y));
    for (const Disc& disc : dial.drawn()) {
        painter.setPen(line(to_qt(disc.outline), scale_.device_pixels(1)));
        painter.setBrush(to_qt(disc.fill));
        if (!disc.sector) {
            painter.drawEllipse(centre, radius, radius);
            continue;
        }
        QPainterPath sector(centre);
        sector.arcTo(QRectF(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius),
                     degrees(disc.sector->start), span_of(*disc.sector));
        sector.closeSubpath();
        painter.drawPath(sector);
    }
}

}  // namespace marrowfen
