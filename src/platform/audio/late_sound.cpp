#include "platform/audio/late_sound.h"

#include <utility>

#include "platform/audio/loudspeaker.h"

namespace marrowfen {

void LateSound::start(std::string_view path) {
    {
        const std::scoped_lock lock(mutex_);
        wanted_ = path;
    }
    if (!worker_.joinable()) worker_ = std::jthread([this](const std::stop_token& stop) { work(stop); });
    woken_.notify_one();
}

void LateSound::work(const std::stop_token& stop) {
    const std::unique_ptr<Loudspeaker> speaker = load_loudspeaker(files_);
    if (!speaker) return;
    const auto is_wanted = [this] { return wanted_.has_value(); };
    std::unique_lock lock(mutex_);
    while (true) {
        if (const auto rest = speaker->next_rest()) {
            woken_.wait_until(lock, stop, *rest, is_wanted);
        } else {
            woken_.wait(lock, stop, is_wanted);
        }
        if (stop.stop_requested()) return;

        const auto path = std::exchange(wanted_, std::nullopt);
        lock.unlock();
        if (!path) {
            speaker->rest();
            lock.lock();
            continue;
        }
        const auto file = files_.find(*path);
        Clip clip = file ? speaker->read(*file) : Clip{};
        lock.lock();
        if (wanted_) continue;
        lock.unlock();
        speaker->play(std::move(clip));
        lock.lock();
    }
}

}  // namespace marrowfen
