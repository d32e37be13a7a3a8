#include "platform/qt/ink.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace marrowfen {

namespace {

double luminance(const QColor& colour) {
    const auto linear = [](int value) {
        const double part = value / 255.0;
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.red()) + 0.7152 * linear(colour.green()) + 0.0722 * linear(colour.blue());
}

QColor mixed(const QColor& colour, const QColor& other, double share) {
    const auto mix = [share](int a, int b) { return static_cast<int>(a + (b - a) * share); };
    return {mix(colour.red(), other.red()), mix(colour.green(), other.green()), mix(colour.blue(), other.blue())};
}

}  // namespace

double contrast(const QColor& one, const QColor& other) {
    const double a = luminance(one);
    const double b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

Ink::Ink(const QColor& of_text, const QColor& behind) : text(of_text) {
    if (contrast(text, behind) >= kReadable) return;
    constexpr double kWell = 3 * kReadable;  // a thin line is painted lighter than it is
    constexpr double kStep = 0.1;
    const QColor far = contrast(Qt::black, behind) > contrast(Qt::white, behind) ? Qt::black : Qt::white;
    double share = kStep;
    while (share < 1 && contrast(mixed(text, far, share), behind) < kWell) share += kStep;
    outline = mixed(text, far, std::min(share, 1.0));
}

void draw_outline(QPainter& painter, const Ink& ink, int size, const std::function<void()>& draw) {
    if (!ink.outline) return;
    // Thin enough to leave the eye of an e open, and the dot of an i apart.
    constexpr double kOfSize = 1.0 / 32;
    const double away = std::max(0.7, size * kOfSize);
    painter.setPen(*ink.outline);
    for (int turn = 0; turn < 8; ++turn) {
        const double angle = turn * std::numbers::pi / 4;
        const QPointF aside(away * std::cos(angle), away * std::sin(angle));
        painter.translate(aside);
        draw();
        painter.translate(-aside);
    }
}

void draw_in(QPainter& painter, const Ink& ink, int size, const std::function<void()>& draw) {
    draw_outline(painter, ink, size, draw);
    painter.setPen(ink.text);
    draw();
}

}  // namespace marrowfen
