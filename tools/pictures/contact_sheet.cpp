// For whoever draws: lays the pictures out on sheets that can be looked at as a whole.

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QString>
#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "../failure.h"
#include "drawings.h"
#include "ink.h"
#include "offscreen.h"

namespace marrowfen {
namespace {

namespace fs = std::filesystem;

constexpr QColor kScreen(0xFF, 0xFF, 0x00);  // the backdrop that all pictures lie on
constexpr QColor kRest(0x1B, 0x53, 0xA2);    // the board's rest that the tiles lie on
constexpr int kWidth = 2520;                 // a row of eighteen keys at three times their size
constexpr int kGap = 8;
constexpr int kCaptionHeight = 26;
constexpr std::array kZooms{1, 3};

/// Rows of pictures under captions, as wide as the widest row.
class Sheet {
public:
    /// Takes as many rows as it needs.
    void add(const std::string& caption, const std::vector<QImage>& pictures, QColor ground) {
        Row row{QString::fromStdString(caption), {}, ground};
        for (const QImage& picture : pictures) {
            if (row.width() + picture.width() > kWidth) rows_.push_back(std::exchange(row, {{}, {}, ground}));
            row.pictures.push_back(picture);
        }
        rows_.push_back(std::move(row));
    }

    void save(const fs::path& file) const {
        QSize size(0, 0);
        for (const Row& row : rows_) size = {std::max(size.width(), row.width()), size.height() + row.height()};
        QImage image(size, QImage::Format_RGB32);
        image.fill(kScreen);
        QPainter painter(&image);
        painter.setPen(kInk);
        int top = 0;
        for (const Row& row : rows_) {
            painter.fillRect(0, top, size.width(), row.height(), row.ground);
            if (!row.caption.isEmpty()) painter.fillRect(0, top, size.width(), kCaptionHeight, Qt::white);
            painter.drawText(kGap, top + kCaptionHeight - kGap, row.caption);
            int left = kGap;
            for (const QImage& picture : row.pictures) {
                painter.drawImage(left, top + row.head() + kGap, picture);
                left += picture.width() + kGap;
            }
            top += row.height();
        }
        painter.end();
        if (!image.save(QString::fromStdString(file.string()))) {
            throw Failure("The sheet " + file.string() + " can't be written.");
        }
    }

private:
    struct Row {
        QString caption;
        std::vector<QImage> pictures;
        QColor ground;

        [[nodiscard]] int width() const {
            int sum = kGap;
            for (const QImage& picture : pictures) sum += picture.width() + kGap;
            return sum;
        }
        [[nodiscard]] int head() const { return caption.isEmpty() ? 0 : kCaptionHeight; }
        [[nodiscard]] int height() const {
            int highest = 0;
            for (const QImage& picture : pictures) highest = std::max(highest, picture.height());
            return head() + highest + 2 * kGap;
        }
    };
    std::vector<Row> rows_;
};

std::vector<fs::path> files_below(const fs::path& folder, std::string_view extension) {
    std::vector<fs::path> files;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
        std::string ending = entry.path().extension().string();
        std::ranges::transform(ending, ending.begin(), [](unsigned char letter) { return std::tolower(letter); });
        if (ending == extension) files.push_back(entry.path());
    }
    std::ranges::sort(files);
    return files;
}

/// As the program shows it where the screen is `zoom` times the design.
QImage as_shown(const QImage& picture, int zoom) {
    constexpr double kDesignPixelsPerMetre = 96 / 0.0254;
    const int scale = std::max(1, qRound(picture.dotsPerMeterX() / kDesignPixelsPerMetre));
    const QSize size = picture.size() * zoom / scale;
    if (size == picture.size()) return picture;
    return picture.convertToFormat(QImage::Format_ARGB32_Premultiplied)
        .scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

std::vector<QImage> as_shown(const std::vector<QImage>& pictures, int zoom) {
    std::vector<QImage> shown;
    shown.reserve(pictures.size());
    for (const QImage& picture : pictures) shown.push_back(as_shown(picture, zoom));
    return shown;
}

/// Folders of key pictures go to one sheet, the picture cards to the other.
void lay_out_key_pictures(const fs::path& folder, const fs::path& out) {
    std::map<std::string, std::vector<QImage>> folders;
    for (const fs::path& file : files_below(folder, ".bmp")) {
        const QImage picture(QString::fromStdString(file.string()));
        if (picture.isNull()) throw Failure("The picture " + file.string() + " can't be read.");
        folders[file.parent_path().lexically_relative(folder).generic_string()].push_back(picture);
    }
    Sheet keys;
    Sheet cards;
    for (const auto& [name, pictures] : folders) {
        Sheet& sheet = name.ends_with("Flash") ? cards : keys;
        for (const int zoom : kZooms)
            sheet.add(name + "  x " + std::to_string(zoom), as_shown(pictures, zoom), kScreen);
        if (&sheet == &keys) sheet.add(name + " on the board", as_shown(pictures, 1), kRest);
    }
    keys.save(out / "keys.png");
    cards.save(out / "cards.png");
}

/// A button's released picture with its pressed one beside it, at each size.
void lay_out_buttons(const fs::path& folder, const fs::path& out) {
    Sheet sheet;
    for (const int zoom : kZooms) {
        const std::size_t a_row = zoom == 1 ? 12 : 4;
        std::vector<QImage> row;
        std::string caption;
        const auto flush = [&] {
            if (!row.empty()) sheet.add(std::exchange(caption, {}), std::exchange(row, {}), kScreen);
        };
        for (const fs::path& file : files_below(folder, ".svg")) {
            const std::string name = file.stem().string();
            if (name.ends_with("-pressed")) continue;
            const fs::path pressed = folder / (name + "-pressed.svg");
            for (const fs::path& picture : {file, pressed}) {
                if (fs::exists(picture)) row.push_back(render_drawing(picture, drawing_size(picture) * zoom));
            }
            caption += name + "    ";
            if (row.size() >= a_row) flush();
        }
        flush();
    }
    sheet.save(out / "buttons.png");
}

void lay_out_all(const std::vector<fs::path>& arguments) {
    fs::create_directories(arguments[0]);
    lay_out_key_pictures(arguments[1], arguments[0]);
    lay_out_buttons(arguments[2] / "buttons", arguments[0]);
}

}  // namespace
}  // namespace marrowfen

int main(int argc, char* argv[]) {
    const marrowfen::Offscreen toolkit(argv[0]);
    return marrowfen::run_tool(argc, argv, "contact_sheet OUT_FOLDER_OF_PNGS KEYPICTURES_FOLDER ARTWORK_FOLDER",
                               marrowfen::lay_out_all);
}
