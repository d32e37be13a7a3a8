#pragma once

#include <filesystem>

#include "platform/audio/loudspeaker.h"

namespace marrowfen {

/// As `Loudspeaker::read`.
[[nodiscard]] Clip read_sound(const std::filesystem::path& file);

}  // namespace marrowfen
