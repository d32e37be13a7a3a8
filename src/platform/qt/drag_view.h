#pragma once

#include <QPixmap>
#include <QWidget>

#include "platform/forms/mouse.h"
#include "platform/qt/surroundings.h"

namespace marrowfen {

/// The tile that follows the pointer during a drag, lifted a little from the board.
class DragView final : public QWidget {
public:
    DragView(const Surroundings& surroundings, QWidget* parent);
    void follow(const std::optional<Mouse::Drag>& drag);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void lift(const PictureBox& tile);

    const Surroundings& surroundings_;
    const PictureBox* lifted_ = nullptr;  // only compared: the tile may be gone
    Picture face_;
    QPixmap picture_;
    int shadow_ = 0;  // device pixels
};

}  // namespace marrowfen
