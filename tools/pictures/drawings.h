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

    /// As large as fits, and transparent where nothing is drawn. Throws Failure for a drawing that is missing or
    /// broken, or shows nothing.
    const QImage& image(const std::string& name);

private:
    std::filesystem::path folder_;
    QSize size_;
    std::map<std::string, QImage> images_;
};
}  // namespace marrowfen
