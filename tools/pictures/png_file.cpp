#include "png_file.h"

#include <png.h>

#include <QImage>
#include <cmath>
#include <cstdint>

#include "../failure.h"

namespace marrowfen {
namespace {

struct Writer {
    png_structp png = png_create_write_struct(
        PNG_LIBPNG_VER_STRING, nullptr, [](png_structp, png_const_charp reason) { throw Failure(reason); }, nullptr);
    png_infop info = png_create_info_struct(png);
    Writer() = default;
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;
    ~Writer() { png_destroy_write_struct(&png, &info); }
};

}  // namespace

std::string encode_png(const QImage& image, double pixels_per_design_pixel) {
    constexpr double kDesignPixelsPerMetre = 96 / 0.0254;
    const QImage pixels = image.convertToFormat(QImage::Format_RGBA8888);
    const auto per_metre = static_cast<std::uint32_t>(std::lround(kDesignPixelsPerMetre * pixels_per_design_pixel));
    std::string bytes;
    const Writer writer;
    png_set_write_fn(
        writer.png, &bytes,
        [](png_structp png, png_bytep data, std::size_t size) {
            static_cast<std::string*>(png_get_io_ptr(png))->append(reinterpret_cast<const char*>(data), size);
        },
        nullptr);
    png_set_IHDR(writer.png, writer.info, static_cast<std::uint32_t>(pixels.width()),
                 static_cast<std::uint32_t>(pixels.height()), 8, PNG_COLOR_TYPE_RGBA, PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_set_pHYs(writer.png, writer.info, per_metre, per_metre, PNG_RESOLUTION_METER);
    png_set_filter(writer.png, PNG_FILTER_TYPE_BASE, PNG_FILTER_NONE);
    constexpr int kSmallest = 9;
    png_set_compression_level(writer.png, kSmallest);
    png_write_info(writer.png, writer.info);
    for (int y = 0; y < pixels.height(); ++y) png_write_row(writer.png, pixels.constScanLine(y));
    png_write_end(writer.png, writer.info);
    return bytes;
}

}  // namespace marrowfen
