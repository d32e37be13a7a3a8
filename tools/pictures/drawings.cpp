#include "drawings.h"

#include <QByteArray>
#include <QPainter>
#include <QSvgRenderer>
#include <utility>

#include "../failure.h"
#include "disk.h"

namespace marrowfen {
namespace {

QImage rendered(const std::filesystem::path& file, QSize size) {
    QSvgRenderer renderer;
    if (!renderer.load(QByteArray::fromStdString(read_bytes(file, "The drawing")))) {
        throw Failure("The drawing " + file.string() + " is not an SVG picture.");
    }
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    const QImage nothing = image;
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter, QRectF(image.rect()));
    if (image == nothing) throw Failure("The drawing " + file.string() + " shows nothing.");
    return image;
}

}  // namespace

Drawings::Drawings(std::filesystem::path folder, QSize size) : folder_(std::move(folder)), size_(size) {}

const QImage& Drawings::image(const std::string& name) {
    auto found = images_.find(name);
    if (found == images_.end()) found = images_.emplace(name, rendered(folder_ / (name + ".svg"), size_)).first;
    return found->second;
}

}  // namespace marrowfen
