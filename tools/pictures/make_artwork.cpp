// Draws what the program itself shows, its title, its board and its buttons, so that it has no drawing to do when it
// starts: once for each height of screens that schools have. What stands on another screen is scaled down from there.

#include <QFontDatabase>
#include <QImage>
#include <array>
#include <filesystem>
#include <string>
#include <vector>

#include "../failure.h"
#include "disk.h"
#include "drawings.h"
#include "offscreen.h"
#include "png_file.h"

namespace marrowfen {
namespace {

namespace fs = std::filesystem;

constexpr std::array kHeights{768, 1080, 2160};  // in pixels; the first is the design's
constexpr std::array kIconSizes{16, 32, 48, 128};
constexpr int kSmallestIcon = 16;  // the M would be an H there, so it has a drawing of its own

void make_artwork(const std::vector<fs::path>& arguments) {
    const fs::path& artwork = arguments[0];
    const fs::path& out = arguments[1];
    for (const fs::path& typeface : {arguments[2], arguments[3]}) {
        if (QFontDatabase::addApplicationFont(QString::fromStdString(typeface.string())) < 0) {
            throw Failure("The typeface " + typeface.string() + " can't be read.");
        }
    }
    for (const char* folder : {"forms", "buttons"}) {
        for (const auto& drawing : fs::directory_iterator(artwork / folder)) {
            const fs::path name = drawing.path().stem();
            if (drawing.path().extension() != ".svg" || name.string().starts_with("icon")) continue;
            for (const int height : kHeights) {
                const double scale = static_cast<double>(height) / kHeights.front();
                write_if_changed(out / std::to_string(height) / (name.string() + ".png"),
                                 encode_png(drawn_at(drawing.path(), scale), scale));
            }
        }
    }
    for (const int size : kIconSizes) {
        const fs::path drawing = artwork / "forms" / (size == kSmallestIcon ? "icon-small.svg" : "icon.svg");
        write_if_changed(out / "Icon" / (std::to_string(size) + ".png"),
                         encode_png(drawn_into(drawing, {size, size}), 1));
    }
}

}  // namespace
}  // namespace marrowfen

int main(int argc, char* argv[]) {
    const marrowfen::Offscreen toolkit(argv[0]);
    return marrowfen::run_tool(argc, argv, "make_artwork ARTWORK_FOLDER OUT_FOLDER COMIC_NEUE_REGULAR COMIC_NEUE_BOLD",
                               marrowfen::make_artwork);
}
