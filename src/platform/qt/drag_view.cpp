#include "platform/qt/drag_view.h"

#include <QPainter>

#include "platform/forms/controls.h"
#include "platform/qt/house_style.h"

namespace marrowfen {

DragView::DragView(const Surroundings& surroundings, QWidget* parent) : QWidget(parent), surroundings_(surroundings) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

void DragView::follow(const std::optional<Mouse::Drag>& drag) {
    if (!drag) {
        if (std::exchange(lifted_, nullptr) != nullptr) hide();
        return;
    }
    // A tile that is typed away while it is held bears another letter from then on.
    if (lifted_ != drag->source || face_ != drag->source->Picture.get()) lift(*drag->source);
    const Scale& scale = surroundings_.scale;
    const QRect pointer = scale.widget(scale.device({drag->pointer.x, drag->pointer.y, 0, 0}));
    move(pointer.x() - width() / 2, pointer.y() - height() / 2);
    if (isVisible()) return;
    raise();
    show();
}

void DragView::lift(const PictureBox& tile) {
    constexpr double kLarger = 1.1;
    lifted_ = &tile;
    face_ = tile.Picture;
    const Scale& scale = surroundings_.scale;
    const QSize size = scale.device(tile.bounds()).size() * kLarger;
    picture_ = QPixmap(size);
    const QPixmap face = surroundings_.pictures.render(tile.Picture, Stretch::Yes, size, scale);
    picture_.fill(tile.back ? to_qt(*tile.back) : QColor(face.isNull() ? Qt::white : Qt::transparent));
    if (!face.isNull()) QPainter(&picture_).drawPixmap(0, 0, face);
    shadow_ = scale.device_pixels(6);
    resize(scale.widget(QRect(QPoint(), size).adjusted(0, 0, 2 * shadow_, 2 * shadow_)).size());
    update();
}

void DragView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double ratio = surroundings_.scale.device_pixel_ratio();
    painter.scale(1 / ratio, 1 / ratio);
    const QRect tile(QPoint(shadow_, shadow_), picture_.size());
    QColor ink = colours::kInk;
    ink.setAlphaF(0.06F);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    for (int grown = shadow_; grown > 0; --grown) {
        const QRectF soft = QRectF(tile).adjusted(-grown, -grown, grown, grown).translated(0, shadow_ / 3.0);
        painter.drawRoundedRect(soft, shadow_, shadow_);
    }
    painter.drawPixmap(tile.topLeft(), picture_);
}

}  // namespace marrowfen
