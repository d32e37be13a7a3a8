#pragma once

#include <filesystem>
#include <system_error>

namespace marrowfen {

/// The sole right to do something in a folder, among all computers that share it. It ends with its holder, also when
/// that is a process that crashes.
class SoleRight {
public:
    /// `file`, which is made if need be, stands for the right; it is readable and writable for whoever may write its
    /// folder.
    explicit SoleRight(const std::filesystem::path& file);
    ~SoleRight();
    SoleRight(const SoleRight&) = delete;
    SoleRight& operator=(const SoleRight&) = delete;
    [[nodiscard]] bool held() const { return held_; }

private:
    int file_ = -1;
    bool held_ = false;
};

/// Waits until what a file or folder holds is on the disk, where a power cut leaves it.
[[nodiscard]] std::error_code make_last(const std::filesystem::path& file_or_folder);

}  // namespace marrowfen
