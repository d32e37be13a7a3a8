#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

#include "platform/files.h"

namespace marrowfen {

constexpr int kSampleRate = 44100;
constexpr int kChannels = 2;

/// Samples as the loudspeaker takes them: `kChannels` of each frame side by side, `kSampleRate` frames a second.
using Clip = std::vector<std::int16_t>;

/// What makes files sound. All of it is used by one thread.
class Loudspeaker {
public:
    Loudspeaker() = default;
    Loudspeaker(const Loudspeaker&) = delete;
    Loudspeaker& operator=(const Loudspeaker&) = delete;
    virtual ~Loudspeaker() = default;

    /// Whatever the file is called, what it holds decides. Empty when it can't be understood, or is too large for a
    /// cue: over 20 MB or over a minute.
    [[nodiscard]] virtual Clip read(const std::filesystem::path& file) = 0;
    /// Instead of what sounds now. Without a device nothing is heard, and the next clip tries again.
    virtual void play(Clip clip) = 0;

    using Time = std::chrono::steady_clock::time_point;
    [[nodiscard]] virtual std::optional<Time> next_rest() const = 0;  ///< when to call `rest`
    virtual void rest() = 0;
};

/// The loudspeaker and the thirty libraries that it hangs on come from a library of ours beside the program, since the
/// program is on the screen sooner without them. nullptr when that library is not there or can't be loaded. It stays
/// loaded.
[[nodiscard]] std::unique_ptr<Loudspeaker> load_loudspeaker(const Files& files);

}  // namespace marrowfen
