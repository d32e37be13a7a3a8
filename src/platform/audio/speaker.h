#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

#include "platform/audio/sound_file.h"

namespace marrowfen {

/// The computer's default audio device. It is opened at the first sound, stands still while nothing sounds, and is
/// given back after a long quiet, since an open device costs processor time even when it stands still. All of it is
/// used by one thread.
class Speaker {
public:
    Speaker() = default;
    Speaker(const Speaker&) = delete;
    Speaker& operator=(const Speaker&) = delete;
    ~Speaker();

    /// Instead of what sounds now. Without a device nothing is heard, and the next clip tries again.
    void play(Clip clip);

    using Time = std::chrono::steady_clock::time_point;
    [[nodiscard]] std::optional<Time> next_rest() const { return next_rest_; }  ///< when to call `rest`
    void rest();

private:
    [[nodiscard]] bool open();
    void close();
    [[nodiscard]] std::size_t samples_left() const;
    void rest_after_what_is_left();

    std::uint32_t device_ = 0;
    bool started_ = false;  // SDL's audio part
    bool sounding_ = false;
    Clip clip_;
    std::optional<Time> next_rest_;
};

}  // namespace marrowfen
