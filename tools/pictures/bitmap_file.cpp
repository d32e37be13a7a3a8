#include "bitmap_file.h"

#include <QImage>
#include <cmath>
#include <cstdint>

namespace marrowfen {
namespace {

constexpr std::uint32_t kFileHeader = 14;
constexpr std::uint32_t kInfoHeader = 108;  // the fourth version, the first with an alpha mask

class LittleEndian {
public:
    LittleEndian& two(std::uint32_t value) { return put(value, 2); }
    LittleEndian& four(std::uint32_t value) { return put(value, 4); }
    LittleEndian& zeros(std::size_t count) {
        bytes_.append(count, '\0');
        return *this;
    }
    std::string take() { return std::move(bytes_); }

private:
    LittleEndian& put(std::uint32_t value, int count) {
        for (int i = 0; i < count; ++i) bytes_.push_back(static_cast<char>((value >> (8 * i)) & 0xFF));
        return *this;
    }
    std::string bytes_;
};

}  // namespace

std::string encode_bitmap(const QImage& image, int pixels_per_design_pixel) {
    constexpr double kDesignPixelsPerMetre = 96 / 0.0254;
    constexpr std::uint32_t kBitfields = 3;
    const QImage pixels = image.convertToFormat(QImage::Format_ARGB32);
    const auto width = static_cast<std::uint32_t>(pixels.width());
    const auto height = static_cast<std::uint32_t>(pixels.height());
    const std::uint32_t size = width * height * 4;
    const auto per_metre = static_cast<std::uint32_t>(std::lround(kDesignPixelsPerMetre * pixels_per_design_pixel));

    LittleEndian out;
    out.two('B' | 'M' << 8).four(kFileHeader + kInfoHeader + size).four(0).four(kFileHeader + kInfoHeader);
    out.four(kInfoHeader).four(width).four(height).two(1).two(32).four(kBitfields).four(size);
    out.four(per_metre).four(per_metre).four(0).four(0);
    out.four(0x00FF0000).four(0x0000FF00).four(0x000000FF).four(0xFF000000);
    out.four(0x73524742);             // the colour space: sRGB
    out.zeros(kInfoHeader - 4 * 15);  // its end points and gammas, which sRGB does not need
    for (int y = pixels.height() - 1; y >= 0; --y) {
        for (int x = 0; x < pixels.width(); ++x) out.four(pixels.pixel(x, y));
    }
    return out.take();
}

}  // namespace marrowfen
