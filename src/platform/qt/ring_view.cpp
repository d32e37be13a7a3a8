#include "platform/qt/ring_view.h"

#include <QPainter>

#include "platform/forms/form.h"
#include "platform/qt/house_style.h"

namespace marrowfen {

namespace {

// In pixels of the design.
constexpr double kDarkLine = 4;
constexpr double kWhiteLine = 2;

}  // namespace

RingView::RingView(const Scale& scale, QWidget* parent) : QWidget(parent), scale_(scale) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

void RingView::stand_round(const Control* control) {
    if (control == nullptr) return hide();
    const Form& form = control->form();
    const Rect bounds = control->bounds();
    const QRect inside =
        scale_.widget(scale_.device({form.Left + bounds.left, form.Top + bounds.top, bounds.width, bounds.height}));
    const int over = scale_.widget_pixels(kDarkLine) + 2 * scale_.widget_pixels(kWhiteLine);
    const QRect place = inside.adjusted(-over, -over, over, over) & parentWidget()->rect();
    if (geometry() != place) {
        setGeometry(place);
        update();
    }
    if (!isVisible()) show();
}

void RingView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const int dark = scale_.widget_pixels(kDarkLine);
    const int white = scale_.widget_pixels(kWhiteLine);
    const double half = (dark + 2 * white) / 2.0;
    const double corner = 2.0 * half;
    const QRectF middle = QRectF(rect()).adjusted(half, half, -half, -half);
    painter.setPen(QPen(Qt::white, 2 * half, Qt::SolidLine, Qt::SquareCap, Qt::RoundJoin));
    painter.drawRoundedRect(middle, corner, corner);
    painter.setPen(QPen(colours::kInk, dark, Qt::SolidLine, Qt::SquareCap, Qt::RoundJoin));
    painter.drawRoundedRect(middle, corner, corner);
}

}  // namespace marrowfen
