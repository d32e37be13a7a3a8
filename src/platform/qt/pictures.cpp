#include "platform/qt/pictures.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <QPainter>
#include <QSvgRenderer>
#include <algorithm>
#include <cmath>

#include "platform/qt/fitted_text.h"
#include "platform/qt/house_style.h"
#include "platform/system/small_file.h"

namespace marrowfen {

namespace {

constexpr std::uintmax_t kMostBytes = 20'000'000;
constexpr double kMetresPerInch = 0.0254;
constexpr double kTwipsPerInch = 1440;
constexpr int kDesignPerMetre = 3780;

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

/// Null: there is no picture, or not the whole of it. A bitmap that breaks off would be shown with whatever the rest of
/// its memory held; the other formats look after themselves.
QImage read_picture(const std::filesystem::path& path) {
    if (!is_small_file(path, kMostBytes)) return {};
    QFile file(QString::fromStdU16String(path.u16string()));
    if (!file.open(QIODevice::ReadOnly)) return {};
    QByteArray content = file.readAll();
    Bytes bytes(&content);
    QImageReader reader(&bytes);
    const bool is_bitmap = reader.format() == "bmp";
    bytes.forgive();
    QImage image = reader.read();
    return is_bitmap && bytes.ran_out() ? QImage() : image;
}

QPixmap empty(QSize size) {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    return pixmap;
}

}  // namespace

QPixmap Pictures::render(const Picture& picture, Stretch stretch, QSize bounds, const Scale& scale) const {
    if (picture.source() == Picture::Source::None || bounds.isEmpty()) return {};
    return picture.source() == Picture::Source::Artwork ? artwork(picture.name(), stretch, bounds, scale)
                                                        : file(picture.name(), stretch, bounds, scale);
}

QPixmap Pictures::artwork(const std::string& name, Stretch stretch, QSize bounds, const Scale& scale) const {
    QSvgRenderer drawing(QStringLiteral(":/artwork/%1.svg").arg(QString::fromStdString(name)));
    if (!drawing.isValid()) return letters(QString::fromStdString(name), bounds);
    const QSize design = drawing.defaultSize();
    const QSize size = stretch == Stretch::Yes
                           ? bounds
                           : QSize(scale.device_pixels(design.width()), scale.device_pixels(design.height()));
    QPixmap pixmap = empty(size.boundedTo(bounds));
    QPainter painter(&pixmap);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    drawing.render(&painter, QRectF(QPointF(), size));
    return pixmap;
}

QPixmap Pictures::file(const std::string& path, Stretch stretch, QSize bounds, const Scale& scale) const {
    QImage image;
    if (const auto found = files_.find(path)) image = read_picture(*found);
    if (image.isNull()) return letters(base_name(path), bounds);
    const QSize size = stretch == Stretch::Yes ? bounds
                                               : QSize(natural(image.width(), image.dotsPerMeterX(), scale),
                                                       natural(image.height(), image.dotsPerMeterY(), scale));
    const QSize shown = size.boundedTo(bounds);
    if (shown != size) {
        image = image.copy(0, 0, part(image.width(), shown.width(), size.width()),
                           part(image.height(), shown.height(), size.height()));
    }
    if (image.size() != shown) image = image.scaled(shown, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    return QPixmap::fromImage(std::move(image));
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
