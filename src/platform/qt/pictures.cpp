#include "platform/qt/pictures.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <QPainter>
#include <QtEndian>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

#include "platform/qt/fitted_text.h"
#include "platform/qt/house_style.h"
#include "platform/system/small_file.h"

namespace marrowfen {

namespace {

constexpr std::uintmax_t kMostBytes = 20'000'000;
constexpr double kMetresPerInch = 0.0254;
constexpr double kTwipsPerInch = 1440;
constexpr int kDesignPerMetre = 3780;
// The folders of artwork are called by the height in pixels of the screen that they were drawn for.
constexpr std::array kDrawnFor{"768", "1080", "2160"};

QString to_qt(const std::filesystem::path& path) { return QString::fromStdU16String(path.u16string()); }

QString base_name(const std::string& path) {
    const QString name = QString::fromStdString(path).section(u'\\', -1);
    const qsizetype point = name.lastIndexOf(u'.');
    return point > 0 ? name.left(point) : name;
}

int natural(int pixels, int per_metre, const Scale& scale) {
    if (per_metre <= 0) per_metre = kDesignPerMetre;
    const double design = pixels / (per_metre * kMetresPerInch) * kTwipsPerInch / kTwipsPerPixel;
    return scale.device_pixels(design);
}

// A file may claim any resolution: only what is seen of it is ever scaled.
int part(int pixels, int shown, int whole) {
    return static_cast<int>(std::ceil(static_cast<double>(pixels) * shown / whole));
}

// Edges are rounded to whole pixels where they stand, so a size may be one pixel off; to stretch a picture by that
// pixel would blur all of it.
bool fits(QSize drawn, QSize shown) {
    return std::abs(drawn.width() - shown.width()) <= 1 && std::abs(drawn.height() - shown.height()) <= 1;
}

// A little smaller than it was drawn, a picture is blurred.
bool stays_sharp(QSize drawn, QSize shown) {
    constexpr double kLeast = 1.25;
    return drawn.width() >= kLeast * shown.width() && drawn.height() >= kLeast * shown.height();
}

/// What a file holds, for a reader that may want more than there is.
class Bytes final : public QBuffer {
public:
    explicit Bytes(QByteArray* bytes) : QBuffer(bytes) { open(ReadOnly); }
    [[nodiscard]] bool ran_out() const { return ran_out_; }
    void forgive() { ran_out_ = false; }

protected:
    qint64 readData(char* data, qint64 most) override {
        const qint64 read = QBuffer::readData(data, most);
        if (read < most) ran_out_ = true;
        return read;
    }

private:
    bool ran_out_ = false;
};

QPixmap empty(QSize size) {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    return pixmap;
}

}  // namespace

QImage read_png(const std::filesystem::path& file) {
    QImageReader reader(to_qt(file), "png");
    reader.setAutoDetectImageFormat(false);
    return reader.read();
}

QImage read_bitmap(const std::filesystem::path& file) {
    constexpr qsizetype kFileHeader = 14;
    QFile source(to_qt(file));
    if (!is_small_file(file, kMostBytes) || !source.open(QIODevice::ReadOnly)) return {};
    QByteArray bytes = source.readAll();
    Bytes buffer(&bytes);
    QImageReader reader(&buffer, "bmp");
    reader.setAutoDetectImageFormat(false);
    if (!reader.canRead()) return {};
    buffer.forgive();
    QImage image = reader.read();
    if (buffer.ran_out()) return {};  // it would be shown with whatever the rest of its memory held
    QList<QRgb> colours = image.colorTable();
    if (colours.isEmpty()) return image;
    const auto header = qFromLittleEndian<qint32>(bytes.constData() + kFileHeader);
    const QByteArray palette = bytes.mid(kFileHeader + header, 4 * colours.size());
    const auto opacity = [&palette](qsizetype entry) { return static_cast<uchar>(palette[4 * entry + 3]); };
    bool any = false;
    for (qsizetype i = 0; i < palette.size() / 4; ++i) any = any || opacity(i) != 0;
    for (qsizetype i = 0; any && i < palette.size() / 4; ++i) {
        colours[i] = qRgba(qRed(colours[i]), qGreen(colours[i]), qBlue(colours[i]), opacity(i));
    }
    image.setColorTable(colours);
    return image.convertToFormat(QImage::Format_ARGB32_Premultiplied);  // scaled with its palette it would be grainy
}

QPixmap Pictures::render(const Picture& picture, Stretch stretch, QSize bounds, const Scale& scale) const {
    if (picture.source() == Picture::Source::None || bounds.isEmpty()) return {};
    const bool is_artwork = picture.source() == Picture::Source::Artwork;
    QImage image = is_artwork ? artwork(picture.name(), bounds) : file(picture.name());
    if (image.isNull()) return letters(base_name(picture.name()), bounds);
    const QSize size = stretch == Stretch::Yes ? bounds
                                               : QSize(natural(image.width(), image.dotsPerMeterX(), scale),
                                                       natural(image.height(), image.dotsPerMeterY(), scale));
    const QSize shown = size.boundedTo(bounds);
    if (shown != size) {
        image = image.copy(0, 0, part(image.width(), shown.width(), size.width()),
                           part(image.height(), shown.height(), size.height()));
    }
    if (image.size() != shown && !(is_artwork && fits(image.size(), shown))) {
        image = image.scaled(shown, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    return QPixmap::fromImage(std::move(image));
}

QImage Pictures::artwork(const std::string& name, QSize bounds) const {
    for (const char* height : kDrawnFor) {
        const auto found = files_.find(files_.program_folder() + "\\Artwork\\" + height + "\\" + name + ".png");
        if (!found) continue;
        QImageReader reader(to_qt(*found), "png");
        reader.setAutoDetectImageFormat(false);
        const QSize drawn = reader.size();
        if (height != kDrawnFor.back() && !fits(drawn, bounds) && !stays_sharp(drawn, bounds)) continue;
        QImage image = reader.read();
        if (!image.isNull()) return image;
    }
    return {};
}

QImage Pictures::file(const std::string& path) const {
    const auto found = files_.find(path);
    if (!found || !is_small_file(*found, kMostBytes)) return {};
    QImage image = read_bitmap(*found);
    if (!image.isNull()) return image;
    QImageReader reader(to_qt(*found));  // whatever a teacher has put there, but no half of a bitmap
    return reader.format() == "bmp" ? QImage() : reader.read();
}

QPixmap Pictures::letters(const QString& base_name, QSize bounds) const {
    QPixmap pixmap = empty(bounds);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colours::kPaleSky);  // what lies below may be dark
    painter.drawRoundedRect(pixmap.rect(), bounds.height() / 8.0, bounds.height() / 8.0);
    painter.setPen(colours::kInk);
    const int size = std::max(1, bounds.height() * 7 / 10);
    draw_line(painter, pixmap.rect(), Qt::AlignHCenter, base_name, faces_.letters(size), 1);
    return pixmap;
}

}  // namespace marrowfen
