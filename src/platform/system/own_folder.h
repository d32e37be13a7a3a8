#pragma once

#include <filesystem>

namespace marrowfen {

/// The folder of the running executable, links followed; empty if the system does not tell.
[[nodiscard]] std::filesystem::path own_folder();

}  // namespace marrowfen
