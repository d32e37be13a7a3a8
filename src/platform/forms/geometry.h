#pragma once

#include <algorithm>
#include <cstdint>

namespace marrowfen {

/// A length on the screen. 15 twips are one pixel of the design, 1440 one inch.
using Twips = std::int32_t;

constexpr Twips kTwipsPerPixel = 15;

struct Point {
    Twips x = 0;
    Twips y = 0;
    friend constexpr bool operator==(Point, Point) = default;
};

struct Size {
    Twips width = 0;
    Twips height = 0;
    friend constexpr bool operator==(Size, Size) = default;
};

/// Written in the order of a design table: left, top, width, height.
struct Rect {
    Twips left = 0;
    Twips top = 0;
    Twips width = 0;
    Twips height = 0;

    [[nodiscard]] constexpr Twips right() const { return left + width; }
    [[nodiscard]] constexpr Twips bottom() const { return top + height; }
    [[nodiscard]] constexpr bool contains(Point p) const {
        return p.x >= left && p.x < right() && p.y >= top && p.y < bottom();
    }
    [[nodiscard]] constexpr Point centre() const { return {left + width / 2, top + height / 2}; }
    friend constexpr bool operator==(const Rect&, const Rect&) = default;
};

}  // namespace marrowfen
