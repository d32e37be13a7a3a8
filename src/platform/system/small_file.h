#pragma once

#include <cstdint>
#include <filesystem>
#include <system_error>

namespace marrowfen {

/// Whether there is a plain file of at most so many bytes, fit to be read at once. A pipe or a device could keep its
/// reader waiting for ever, and a file that was put in a picture's place by mistake may be of any size.
[[nodiscard]] inline bool is_small_file(const std::filesystem::path& file, std::uintmax_t most_bytes) {
    std::error_code error;
    return std::filesystem::is_regular_file(file, error) && std::filesystem::file_size(file, error) <= most_bytes &&
           !error;
}

}  // namespace marrowfen
