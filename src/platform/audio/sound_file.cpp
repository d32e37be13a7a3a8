#include "platform/audio/sound_file.h"

#include <SDL.h>
#include <sndfile.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>

#include "platform/system/small_file.h"

namespace marrowfen {

namespace {

constexpr std::uintmax_t kMostBytes = 20'000'000;
constexpr int kMostSeconds = 60;
constexpr int kMostChannels = 8;  // what the converter can mix down
// A small compressed file can claim any rate, and would unpack to gigabytes.
constexpr sf_count_t kMostSamples = sf_count_t{kMostSeconds} * 48000 * 2;

struct Close {
    void operator()(SNDFILE* file) const { sf_close(file); }
};
using SoundFile = std::unique_ptr<SNDFILE, Close>;

bool is_fit_for_a_cue(const SF_INFO& info) {
    return info.samplerate > 0 && info.channels > 0 && info.channels <= kMostChannels && info.frames > 0 &&
           info.frames <= sf_count_t{kMostSeconds} * info.samplerate && info.frames <= kMostSamples / info.channels;
}

}  // namespace

Clip read_sound(const std::filesystem::path& file) {
    if (!is_small_file(file, kMostBytes)) return {};
    SF_INFO info{};
    const SoundFile sound(sf_open(file.string().c_str(), SFM_READ, &info));
    if (!sound || !is_fit_for_a_cue(info)) return {};

    // The converter works in place, in a buffer as large as its largest step needs.
    SDL_AudioCVT converter{};
    if (SDL_BuildAudioCVT(&converter, AUDIO_F32SYS, static_cast<Uint8>(info.channels), info.samplerate, AUDIO_S16SYS,
                          kChannels, kSampleRate) < 0) {
        return {};
    }
    const auto samples = static_cast<std::size_t>(info.frames * info.channels);
    std::vector<float> buffer(samples * static_cast<std::size_t>(std::max(converter.len_mult, 1)));
    const sf_count_t read = sf_readf_float(sound.get(), buffer.data(), info.frames);
    if (read <= 0) return {};
    converter.len = static_cast<int>(read * info.channels) * static_cast<int>(sizeof(float));
    converter.len_cvt = converter.len;
    converter.buf = reinterpret_cast<Uint8*>(buffer.data());
    if (converter.needed != 0 && SDL_ConvertAudio(&converter) != 0) return {};

    Clip clip(static_cast<std::size_t>(converter.len_cvt) / sizeof(Clip::value_type));
    if (clip.empty()) return clip;  // one sample at a high rate is none at ours
    std::memcpy(clip.data(), buffer.data(), clip.size() * sizeof(Clip::value_type));
    return clip;
}

}  // namespace marrowfen
