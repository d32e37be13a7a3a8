#pragma once

#include <string_view>

namespace marrowfen {

/// Plays one sound at a time; starting one ends the one before. Never waits, never fails aloud.
class SoundDevice {
public:
    virtual ~SoundDevice() = default;
    /// `path` is written with backslashes, in any case, and may hold empty parts. A file that is missing or can't be
    /// understood is silence.
    virtual void start(std::string_view path) = 0;
};

}  // namespace marrowfen
