#include "platform/audio/speaker.h"

#include <SDL.h>

#include <algorithm>
#include <utility>

namespace marrowfen {

namespace {

constexpr Uint16 kBufferFrames = 512;  // 12 ms: a cue must come with the key that earned it
constexpr std::size_t kFadeSamples = std::size_t{kSampleRate} * 3 / 1000 * kChannels;
constexpr std::chrono::milliseconds kBufferedAhead{50};
constexpr std::chrono::seconds kLongQuiet{30};

// A sound that breaks off in mid-wave clicks, so its next three milliseconds fade out under the new one.
void fade_into(Clip& clip, const Clip& before, std::size_t position) {
    clip.resize(std::max(clip.size(), kFadeSamples));
    const std::size_t tail = std::min(kFadeSamples, before.size() - position);
    for (std::size_t i = 0; i < tail; ++i) {
        const int faded = before[position + i] * static_cast<int>(kFadeSamples - i) / static_cast<int>(kFadeSamples);
        clip[i] = static_cast<Clip::value_type>(std::clamp(clip[i] + faded, INT16_MIN, INT16_MAX));
    }
}

}  // namespace

Speaker::~Speaker() {
    close();
    if (started_) SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

bool Speaker::open() {
    if (device_ != 0 && SDL_GetAudioDeviceStatus(device_) == SDL_AUDIO_STOPPED) close();  // it was unplugged
    if (device_ != 0) return true;
    if (!started_) {
        SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");  // Ctrl+C stays the terminal's
        SDL_SetHint(SDL_HINT_AUDIO_DEVICE_APP_NAME, "Marrowfen");
        started_ = SDL_InitSubSystem(SDL_INIT_AUDIO) == 0;
        if (!started_) return false;
    }
    SDL_AudioSpec wanted{};
    wanted.freq = kSampleRate;
    wanted.format = AUDIO_S16SYS;
    wanted.channels = kChannels;
    wanted.samples = kBufferFrames;
    device_ = SDL_OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
    if (device_ != 0) return true;
    // Another sound system may be there by the next time.
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
    started_ = false;
    return false;
}

void Speaker::close() {
    if (device_ != 0) SDL_CloseAudioDevice(device_);
    device_ = 0;
    sounding_ = false;
}

std::size_t Speaker::samples_left() const {
    return device_ == 0 ? 0 : SDL_GetQueuedAudioSize(device_) / sizeof(Clip::value_type);
}

void Speaker::play(Clip clip) {
    if ((clip.empty() && samples_left() == 0) || !open()) return;
    SDL_LockAudioDevice(device_);
    const std::size_t left = std::min(samples_left(), clip_.size());
    if (left > 0) fade_into(clip, clip_, clip_.size() - left);
    SDL_ClearQueuedAudio(device_);
    SDL_QueueAudio(device_, clip.data(), static_cast<Uint32>(clip.size() * sizeof(Clip::value_type)));
    SDL_UnlockAudioDevice(device_);
    clip_ = std::move(clip);
    SDL_PauseAudioDevice(device_, 0);
    sounding_ = true;
    rest_after_what_is_left();
}

void Speaker::rest_after_what_is_left() {
    const std::chrono::milliseconds left{samples_left() * 1000 / (std::size_t{kSampleRate} * kChannels)};
    next_rest_ = std::chrono::steady_clock::now() + left + kBufferedAhead;
}

void Speaker::rest() {
    const bool is_lost = device_ == 0 || SDL_GetAudioDeviceStatus(device_) == SDL_AUDIO_STOPPED;
    if (sounding_ && !is_lost && samples_left() > 0) {
        rest_after_what_is_left();
    } else if (sounding_ && !is_lost) {
        SDL_PauseAudioDevice(device_, 1);
        sounding_ = false;
        next_rest_ = std::chrono::steady_clock::now() + kLongQuiet;
    } else {
        close();
        clip_ = {};
        next_rest_.reset();
    }
}

}  // namespace marrowfen

// What the program asks the library for.
extern "C" [[gnu::visibility("default")]] marrowfen::Loudspeaker* marrowfen_new_loudspeaker();
marrowfen::Loudspeaker* marrowfen_new_loudspeaker() { return new marrowfen::Speaker; }
