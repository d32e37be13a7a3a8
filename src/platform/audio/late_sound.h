#pragma once

#include <condition_variable>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

#include "platform/files.h"
#include "platform/sound_device.h"

namespace marrowfen {

/// Sound without waiting. A thread of its own finds, reads and plays the files, so that the game never waits for the
/// disk or the device; of several sounds that are asked for in a hurry only the newest is heard. That thread and all
/// that makes sound come with the first cue.
class LateSound final : public SoundDevice {
public:
    /// `files` is asked from that thread.
    explicit LateSound(const Files& files) : files_(files) {}
    void start(std::string_view path) override;

private:
    void work(const std::stop_token& stop);

    const Files& files_;
    std::mutex mutex_;
    std::condition_variable_any woken_;
    std::optional<std::string> wanted_;
    std::jthread worker_;  // the last member: it ends before anything that it uses
};

}  // namespace marrowfen
