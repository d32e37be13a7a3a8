#pragma once

#include <QPointF>
#include <QRect>
#include <QSize>

#include "platform/forms/geometry.h"

namespace marrowfen {

/// The one place where twips become pixels. Device pixels are the dots of the screen; a widget's coordinates are the
/// desktop's own unit, which on a dense screen stands for several dots.
class Scale {
public:
    Scale() = default;
    /// The whole of `shown` (twips) fits the window and is as large as it can be.
    Scale(QSize window, double device_pixel_ratio, Size shown = kDesign);
    static constexpr Size kDesign{1024 * kTwipsPerPixel, 768 * kTwipsPerPixel};

    [[nodiscard]] Size screen() const;  ///< the window's size in twips
    [[nodiscard]] Point twips(QPointF in_window) const;
    /// Edges are rounded, not sizes: things that touch in twips touch on the screen. `on_screen` in twips.
    [[nodiscard]] QRect device(const Rect& on_screen) const;
    [[nodiscard]] double device(Twips length) const { return length * per_twip_; }
    [[nodiscard]] int device_pixels(double of_design) const;  ///< never none at all
    [[nodiscard]] int widget_pixels(double of_design) const;
    [[nodiscard]] QRect widget(const QRect& device) const;  ///< all that it touches
    [[nodiscard]] double device_pixel_ratio() const { return ratio_; }
    friend bool operator==(const Scale&, const Scale&) = default;

private:
    QSize window_;
    double ratio_ = 1;
    double per_twip_ = 1.0 / kTwipsPerPixel;  // device pixels
};

/// A font's size in pixels of the design.
constexpr double design_pixels(double points) { return points * 20 / kTwipsPerPixel; }

}  // namespace marrowfen
