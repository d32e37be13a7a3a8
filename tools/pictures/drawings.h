#pragma once

#include <QImage>
#include <QSize>
#include <filesystem>
#include <map>
#include <string>

namespace marrowfen {

/// The drawings of one folder at one size; each is read and rendered once.
class Drawings {
public:
    /// Size in pixels of the picture.
    Drawings(std::filesystem::path folder, QSize size);

    /// Transparent where nothing is drawn. Throws Failure for a drawing that is missing or broken.
    const QImage& image(const std::string& name);

private:
    std::filesystem::path folder_;
    QSize size_;
    std::map<std::string, QImage> images_;
};

/// Renders one drawing, as large as fits. Throws Failure as above.
QImage render_drawing(const std::filesystem::path& file, QSize size);

/// The size in design pixels that the drawing gives itself.
QSize drawing_size(const std::filesystem::path& file);

}  // namespace marrowfen
