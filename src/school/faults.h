#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace marrowfen {

/// What is wrong with the tables. A teacher reads it.
class Faults {
public:
    struct Place {
        int line = 0;
        std::optional<std::size_t> column = {};  ///< none: the line as a whole, or the table
        std::string reason = {};
    };

    void add(const std::filesystem::path& file, int line, const std::string& reason,
             std::optional<std::size_t> column = {});
    [[nodiscard]] bool none() const { return files_.empty(); }
    /// A line each, "FILE:LINE: reason". A file that is wrong all over is not told to its end: the last of its lines
    /// says how many more there are.
    [[nodiscard]] std::vector<std::string> lines() const;
    /// The same for whoever shows a fault in its cell.
    [[nodiscard]] const std::vector<Place>& places() const { return places_; }

private:
    struct OfOneFile {
        std::string file;
        std::vector<std::string> lines;
        std::size_t untold = 0;
    };
    std::vector<OfOneFile> files_;
    std::vector<Place> places_;
};

}  // namespace marrowfen
