#include "platform/audio/sdl_sound.h"

#include <utility>

#include "platform/audio/sound_file.h"
#include "platform/audio/speaker.h"

namespace marrowfen {

SdlSound::SdlSound(const Files& files) : files_(files), worker_([this](const std::stop_token& stop) { work(stop); }) {}

void SdlSound::start(std::string_view path) {
    {
        const std::scoped_lock lock(mutex_);
        wanted_ = path;
    }
    woken_.notify_one();
}

void SdlSound::work(const std::stop_token& stop) {
    Speaker speaker;
    const auto is_wanted = [this] { return wanted_.has_value(); };
    std::unique_lock lock(mutex_);
    while (true) {
        if (const auto rest = speaker.next_rest()) {
            woken_.wait_until(lock, stop, *rest, is_wanted);
        } else {
            woken_.wait(lock, stop, is_wanted);
        }
        if (stop.stop_requested()) return;

        const auto path = std::exchange(wanted_, std::nullopt);
        lock.unlock();
        if (!path) {
            speaker.rest();
            lock.lock();
            continue;
        }
        const auto file = files_.find(*path);
        Clip clip = file ? read_sound(*file) : Clip{};
        lock.lock();
        if (wanted_) continue;
        lock.unlock();
        speaker.play(std::move(clip));
        lock.lock();
    }
}

}  // namespace marrowfen
