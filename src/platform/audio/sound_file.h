#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

namespace marrowfen {

constexpr int kSampleRate = 44100;
constexpr int kChannels = 2;

/// Samples as the loudspeaker takes them: `kChannels` of each frame side by side, `kSampleRate` frames a second.
using Clip = std::vector<std::int16_t>;

/// Whatever the file is called, what it holds decides. Empty when it can't be understood, or is too large for a cue:
/// over 20 MB or over a minute.
[[nodiscard]] Clip read_sound(const std::filesystem::path& file);

}  // namespace marrowfen
