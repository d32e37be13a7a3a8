#pragma once

#include "platform/files.h"

namespace marrowfen {

/// The real disk. A name is taken as it is written where that exists, otherwise in the first spelling found.
class DiskFiles final : public Files {
public:
    explicit DiskFiles(std::filesystem::path program_folder);
    [[nodiscard]] std::string program_folder() const override;
    [[nodiscard]] std::string short_program_folder() const override;
    [[nodiscard]] std::optional<std::filesystem::path> find(std::string_view path) const override;

private:
    std::filesystem::path folder_;
};

}  // namespace marrowfen
