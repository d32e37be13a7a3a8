#include "bitmap_file.h"

#include <libimagequant.h>

#include <QImage>
#include <cmath>
#include <cstdint>
#include <memory>
#include <vector>

#include "../failure.h"

namespace marrowfen {
namespace {

constexpr std::uint32_t kFileHeader = 14;
constexpr std::uint32_t kInfoHeader = 40;

class LittleEndian {
public:
    LittleEndian& one(std::uint32_t value) { return put(value, 1); }
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

struct Paletted {
    std::vector<unsigned char> pixels;  // row by row from the top, none between two rows
    std::vector<liq_color> palette;
};

struct Destroy {
    void operator()(liq_attr* it) const { liq_attr_destroy(it); }
    void operator()(liq_image* it) const { liq_image_destroy(it); }
    void operator()(liq_result* it) const { liq_result_destroy(it); }
};

// Without dithering, whose grain a large screen would show.
Paletted paletted(const QImage& image) {
    const QImage rgba = image.convertToFormat(QImage::Format_RGBA8888);
    Paletted result{std::vector<unsigned char>(static_cast<std::size_t>(rgba.width() * rgba.height())), {}};
    const std::unique_ptr<liq_attr, Destroy> settings(liq_attr_create());
    const std::unique_ptr<liq_image, Destroy> source(
        liq_image_create_rgba(settings.get(), rgba.constBits(), rgba.width(), rgba.height(), 0));
    liq_result* made = nullptr;
    if (liq_image_quantize(source.get(), settings.get(), &made) != LIQ_OK) throw Failure("A picture has no palette.");
    const std::unique_ptr<liq_result, Destroy> colours(made);
    liq_set_dithering_level(colours.get(), 0);
    liq_write_remapped_image(colours.get(), source.get(), result.pixels.data(), result.pixels.size());
    const liq_palette* palette = liq_get_palette(colours.get());
    result.palette.assign(palette->entries, palette->entries + palette->count);
    return result;
}

}  // namespace

std::string encode_bitmap(const QImage& image, int pixels_per_design_pixel) {
    constexpr double kDesignPixelsPerMetre = 96 / 0.0254;
    const auto [pixels, palette] = paletted(image);
    const auto width = static_cast<std::uint32_t>(image.width());
    const auto height = static_cast<std::uint32_t>(image.height());
    const auto colours = static_cast<std::uint32_t>(palette.size());
    const std::uint32_t row = (width + 3) / 4 * 4;  // a row ends on a whole word
    const std::uint32_t begin = kFileHeader + kInfoHeader + 4 * colours;
    const auto per_metre = static_cast<std::uint32_t>(std::lround(kDesignPixelsPerMetre * pixels_per_design_pixel));

    LittleEndian out;
    out.two('B' | 'M' << 8).four(begin + row * height).four(0).four(begin);
    out.four(kInfoHeader).four(width).four(height).two(1).two(8).four(0).four(row * height);
    out.four(per_metre).four(per_metre).four(colours).four(colours);
    for (const liq_color& colour : palette) {
        // What is not there at all is white to a reader that knows no opacity.
        const bool there = colour.a != 0;
        for (const unsigned char part : {colour.b, colour.g, colour.r}) out.one(there ? part : 255);
        out.one(colour.a);
    }
    for (std::uint32_t y = height; y-- > 0;) {
        for (std::uint32_t x = 0; x < width; ++x) out.one(pixels[y * width + x]);
        out.zeros(row - width);
    }
    return out.take();
}

}  // namespace marrowfen
