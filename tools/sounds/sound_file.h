#pragma once

#include <filesystem>

#include "samples.h"

namespace marrowfen {

struct Recording {
    Samples samples;  // the first channel
    double rate = 0;  // samples a second
};

/// Throws Failure where there is no sound file that can be read.
[[nodiscard]] Recording read_recording(const std::filesystem::path& file);

/// Writes 16-bit samples at kRate, as ".au" or ".wav" by the extension. The file appears under its name only once it
/// is whole; until then, and after a Failure, whatever had that name stays as it was.
void write_sound(const std::filesystem::path& file, const Samples& sound);

}  // namespace marrowfen
