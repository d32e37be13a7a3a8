#include "drawings.h"

#include <QByteArray>
#include <QPainter>
#include <QSvgRenderer>
#include <utility>

#include "../failure.h"
#include "disk.h"

namespace marrowfen {
namespace {

void load(QSvgRenderer& renderer, const std::filesystem::path& file) {
    if (!renderer.load(QByteArray::fromStdString(read_bytes(file, "The drawing")))) {
        throw Failure("The drawing " + file.string() + " is not an SVG picture.");
    }
}

}  // namespace

Drawings::Drawings(std::filesystem::path folder, QSize size) : folder_(std::move(folder)), size_(size) {}

const QImage& Drawings::image(const std::string& name) {
    auto found = images_.find(name);
    if (found == images_.end()) found = images_.emplace(name, render_drawing(folder_ / (name + ".svg"), size_)).first;
    return found->second;
}

QImage render_drawing(const std::filesystem::path& file, QSize size) {
    QSvgRenderer renderer;
    load(renderer, file);
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter, QRectF(image.rect()));
    return image;
}

QSize drawing_size(const std::filesystem::path& file) {
    QSvgRenderer renderer;
    load(renderer, file);
    return renderer.defaultSize();
}

}  // namespace marrowfen
