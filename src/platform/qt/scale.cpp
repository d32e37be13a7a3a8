#include "platform/qt/scale.h"

#include <algorithm>
#include <cmath>

namespace marrowfen {

namespace {

int rounded(double length) { return static_cast<int>(std::floor(length + 0.5)); }

}  // namespace

Scale::Scale(QSize window, double device_pixel_ratio, Size shown)
    : window_(window.expandedTo({1, 1})),
      ratio_(device_pixel_ratio),
      per_twip_(std::min(static_cast<double>(window_.width()) / shown.width,
                         static_cast<double>(window_.height()) / shown.height) *
                ratio_) {}

Size Scale::screen() const {
    return {rounded(window_.width() * ratio_ / per_twip_), rounded(window_.height() * ratio_ / per_twip_)};
}

Point Scale::twips(QPointF in_window) const {
    const double per_unit = ratio_ / per_twip_;
    return {static_cast<Twips>(std::floor(in_window.x() * per_unit)),
            static_cast<Twips>(std::floor(in_window.y() * per_unit))};
}

QRect Scale::device(const Rect& on_screen) const {
    const int left = rounded(on_screen.left * per_twip_);
    const int top = rounded(on_screen.top * per_twip_);
    return {left, top, rounded(on_screen.right() * per_twip_) - left, rounded(on_screen.bottom() * per_twip_) - top};
}

int Scale::device_pixels(double of_design) const {
    return std::max(1, rounded(of_design * kTwipsPerPixel * per_twip_));
}

int Scale::widget_pixels(double of_design) const {
    return std::max(1, rounded(of_design * kTwipsPerPixel * per_twip_ / ratio_));
}

QRect Scale::widget(const QRect& device) const {
    const auto first = [this](int edge) { return static_cast<int>(std::floor(edge / ratio_)); };
    const auto last = [this](int edge) { return static_cast<int>(std::ceil(edge / ratio_)); };
    const int left = first(device.x());
    const int top = first(device.y());
    return {left, top, last(device.x() + device.width()) - left, last(device.y() + device.height()) - top};
}

}  // namespace marrowfen
