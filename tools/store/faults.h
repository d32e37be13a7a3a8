#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace marrowfen {

/// What is wrong with the content, a line each: "FILE:LINE: reason". A teacher reads them.
class Faults {
public:
    void add(const std::filesystem::path& file, int line, const std::string& reason);
    [[nodiscard]] bool none() const { return lines_.empty(); }
    [[nodiscard]] const std::vector<std::string>& lines() const { return lines_; }

private:
    std::vector<std::string> lines_;
};

}  // namespace marrowfen
