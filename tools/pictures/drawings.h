#pragma once

#include <QImage>
#include <QSize>
#include <filesystem>
#include <map>
#include <string>

namespace marrowfen {

/// A drawing in pixels, transparent where nothing is drawn: as large as fits into `size`, or `scale` times as large as
/// the drawing says. Throws Failure for a drawing that is missing or broken, or shows nothing.
[[nodiscard]] QImage drawn_into(const std::filesystem::path& drawing, QSize size);
[[nodiscard]] QImage drawn_at(const std::filesystem::path& drawing, double scale);

/// The drawings of one folder at one size; each is read and rendered once.
class Drawings {
public:
    /// Size in pixels of the picture.
    Drawings(std::filesystem::path folder, QSize size);

    /// As `drawn_into`.
    const QImage& image(const std::string& name);

private:
    std::filesystem::path folder_;
    QSize size_;
    std::map<std::string, QImage> images_;
};
}  // namespace marrowfen
