#include "drawings.h"

#include <QByteArray>
#include <QPainter>
#include <QSvgRenderer>
#include <utility>

#include "../failure.h"
#include "disk.h"

namespace marrowfen {
namespace {

class Drawing {
public:
    explicit Drawing(const std::filesystem::path& file) : file_(file) {
        if (!renderer_.load(QByteArray::fromStdString(read_bytes(file, "The drawing")))) {
            throw Failure("The drawing " + file.string() + " is not an SVG picture.");
        }
    }
    [[nodiscard]] QSize size() const { return renderer_.defaultSize(); }
    [[nodiscard]] QImage image(QSize size, Qt::AspectRatioMode aspect) {
        renderer_.setAspectRatioMode(aspect);
        QImage image(size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        const QImage nothing = image;
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        renderer_.render(&painter, QRectF(image.rect()));
        if (image == nothing) throw Failure("The drawing " + file_.string() + " shows nothing.");
        return image;
    }

private:
    std::filesystem::path file_;
    QSvgRenderer renderer_;
};

}  // namespace

QImage drawn_into(const std::filesystem::path& drawing, QSize size) {
    return Drawing(drawing).image(size, Qt::KeepAspectRatio);
}

QImage drawn_at(const std::filesystem::path& drawing, double scale) {
    Drawing vector(drawing);
    return vector.image((QSizeF(vector.size()) * scale).toSize(), Qt::IgnoreAspectRatio);
}

Drawings::Drawings(std::filesystem::path folder, QSize size) : folder_(std::move(folder)), size_(size) {}

const QImage& Drawings::image(const std::string& name) {
    auto found = images_.find(name);
    if (found == images_.end()) found = images_.emplace(name, drawn_into(folder_ / (name + ".svg"), size_)).first;
    return found->second;
}

}  // namespace marrowfen
