#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace marrowfen {

/// What is wrong with the tables. A teacher reads it.
class Faults {
public:
    void add(const std::filesystem::path& file, int line, const std::string& reason);
    [[nodiscard]] bool none() const { return files_.empty(); }
    /// A line each, "FILE:LINE: reason". A file that is wrong all over is not told to its end: the last of its lines
    /// says how many more there are.
    [[nodiscard]] std::vector<std::string> lines() const;

private:
    struct OfOneFile {
        std::string file;
        std::vector<std::string> lines;
        std::size_t untold = 0;
    };
    std::vector<OfOneFile> files_;
};

}  // namespace marrowfen
