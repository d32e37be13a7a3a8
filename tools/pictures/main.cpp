// Makes every picture that the games ask for.

#include <QImage>
#include <QPainter>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "../failure.h"
#include "bitmap_file.h"
#include "disk.h"
#include "drawings.h"
#include "ink.h"
#include "key_cap.h"
#include "lettering.h"
#include "offscreen.h"
#include "tables/picture_list.h"

namespace marrowfen {
namespace {

namespace fs = std::filesystem;

// Pixels of the file for each design pixel: crisp on the screens that schools have, small on the disk.
constexpr int kKeyScale = 3;
constexpr int kCardScale = 2;
constexpr QSize kCardSize{119, 113};
// Drawings are made for a whole key and keep a margin; five sixths of it fits the top of a cap.
constexpr QSize kDrawingOnCap{110, 100};

class Studio {
public:
    Studio(const fs::path& artwork, const fs::path& typeface)
        : lettering_(typeface),
          things_(artwork / "keys", kDrawingOnCap),
          cards_(artwork / "cards", kCardSize * kCardScale) {}

    /// The bytes of the picture's file.
    std::string make(const ListedPicture& picture) {
        if (!picture.cap) return encode_bitmap(cards_.image(picture.drawing), kCardScale);
        return encode_bitmap(key(*picture.cap, picture), kKeyScale);
    }

private:
    QImage key(CapKind cap, const ListedPicture& picture) {
        QImage image((kCapSize * kKeyScale).toSize(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(kKeyScale, kKeyScale);
        draw_key_cap(painter, cap);
        if (picture.letter) {
            painter.fillPath(lettering_.outline(*picture.letter), kInk);
        } else {
            painter.resetTransform();  // the drawing has the size of the file's pixels: no second sampling
            QRect place({}, kDrawingOnCap);
            place.moveCenter((kCapTop.center() * kKeyScale).toPoint());
            painter.drawImage(place, things_.image(picture.drawing));
        }
        return image;
    }

    Lettering lettering_;
    Drawings things_, cards_;
};

void check(const fs::path& file) {
    const std::string bytes = read_bytes(file, "The picture");
    if (QImage::fromData(QByteArray::fromStdString(bytes), "BMP").isNull()) {
        throw Failure("The picture " + file.string() + " was written, but can't be read as a picture.");
    }
}

void make_pictures(const std::vector<fs::path>& arguments) {
    const std::vector<ListedPicture> pictures = read_picture_list(arguments[0]);
    Studio studio(arguments[1], arguments[2]);
    const fs::path& out = arguments[3];
    std::vector<std::string> files;  // all are made before the folder is touched
    files.reserve(pictures.size());
    for (const ListedPicture& picture : pictures) files.push_back(studio.make(picture));

    std::set<std::string> names;
    for (const ListedPicture& picture : pictures) names.insert(picture.file);
    remove_other_pictures(out, names);
    for (std::size_t i = 0; i < pictures.size(); ++i) write_if_changed(out / pictures[i].file, files[i]);
    for (const ListedPicture& picture : pictures) check(out / picture.file);
}

}  // namespace
}  // namespace marrowfen

int main(int argc, char* argv[]) {
    const marrowfen::Offscreen toolkit(argv[0]);
    return marrowfen::run_tool(argc, argv, "make_pictures LIST_FILE ARTWORK_FOLDER ANDIKA_TTF OUT_FOLDER",
                               marrowfen::make_pictures);
}
