#include "sound_file.h"

#include <sndfile.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <system_error>

#include "../failure.h"

namespace marrowfen {
namespace {

namespace fs = std::filesystem;

struct Closer {
    void operator()(SNDFILE* file) const { sf_close(file); }
};
using SoundFile = std::unique_ptr<SNDFILE, Closer>;

/// A file that goes away unless it was renamed.
class Draft {
public:
    explicit Draft(fs::path path) : path_(std::move(path)) {}
    Draft(const Draft&) = delete;
    Draft& operator=(const Draft&) = delete;
    ~Draft() {
        std::error_code ignored;
        fs::remove(path_, ignored);
    }
    [[nodiscard]] const fs::path& path() const { return path_; }

private:
    fs::path path_;
};

[[noreturn]] void fail_to_write(const fs::path& file, const std::string& why) {
    throw Failure("The sound " + file.string() + " can't be written: " + why + ".");
}

std::vector<std::int16_t> to_16_bits(const Samples& sound) {
    std::vector<std::int16_t> values(sound.size());
    std::ranges::transform(sound, values.begin(), [](double sample) {
        return static_cast<std::int16_t>(std::lround(std::clamp(sample, -1.0, 1.0) * INT16_MAX));
    });
    return values;
}

void write_whole(const fs::path& file, const Samples& sound, int format) {
    SF_INFO info{};
    info.samplerate = static_cast<int>(kRate);
    info.channels = 1;
    info.format = format | SF_FORMAT_PCM_16;
    SoundFile out(sf_open(file.string().c_str(), SFM_WRITE, &info));
    if (!out) fail_to_write(file, sf_strerror(nullptr));
    const std::vector<std::int16_t> values = to_16_bits(sound);
    const auto count = static_cast<sf_count_t>(values.size());
    if (sf_write_short(out.get(), values.data(), count) != count) fail_to_write(file, sf_strerror(out.get()));
    if (sf_close(out.release()) != 0) fail_to_write(file, "the disk may be full");
}

}  // namespace

Recording read_recording(const fs::path& file) {
    SF_INFO info{};
    const SoundFile in(sf_open(file.string().c_str(), SFM_READ, &info));
    if (!in) throw Failure("The sound " + file.string() + " can't be read: " + sf_strerror(nullptr) + ".");
    const auto channels = static_cast<std::size_t>(info.channels);
    Samples all(static_cast<std::size_t>(info.frames) * channels);
    const sf_count_t frames = sf_readf_double(in.get(), all.data(), info.frames);
    Recording recording{Samples(static_cast<std::size_t>(frames)), static_cast<double>(info.samplerate)};
    for (std::size_t i = 0; i < recording.samples.size(); ++i) recording.samples[i] = all[i * channels];
    return recording;
}

void write_sound(const fs::path& file, const Samples& sound) {
    const Draft draft(file.string() + ".part");
    write_whole(draft.path(), sound, file.extension() == ".au" ? SF_FORMAT_AU : SF_FORMAT_WAV);
    std::error_code error;
    fs::rename(draft.path(), file, error);
    if (error) fail_to_write(file, error.message());
}

}  // namespace marrowfen
