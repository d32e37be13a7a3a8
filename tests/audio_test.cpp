#include <gtest/gtest.h>
#include <sndfile.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "platform/audio/sdl_sound.h"
#include "platform/system/disk_files.h"

namespace marrowfen {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

/// A room whose loudspeaker is a file: what sounds there can be read afterwards.
class AudioTest : public testing::Test {
protected:
    AudioTest() {
        fs::create_directory(folder_);
        setenv("SDL_AUDIODRIVER", "disk", 1);
        setenv("SDL_DISKAUDIOFILE", heard_file().c_str(), 1);
    }
    ~AudioTest() override { fs::remove_all(folder_); }

    [[nodiscard]] fs::path heard_file() const { return folder_ / "heard.raw"; }
    [[nodiscard]] std::string path(const std::string& name) const { return files_.program_folder() + "\\" + name; }

    /// A sound that holds one level all the time, so that it can be told from another one.
    void record(const std::string& name, float level, double seconds, int format, int rate, int channels) const {
        SF_INFO info{};
        info.samplerate = rate;
        info.channels = channels;
        info.format = format;
        SNDFILE* file = sf_open((folder_ / name).c_str(), SFM_WRITE, &info);
        const std::vector<float> samples(static_cast<std::size_t>(seconds * rate * channels), level);
        sf_write_float(file, samples.data(), static_cast<sf_count_t>(samples.size()));
        sf_close(file);
    }

    [[nodiscard]] std::vector<std::int16_t> heard() const {
        std::error_code not_there_yet;
        const auto bytes = fs::file_size(heard_file(), not_there_yet);
        std::vector<std::int16_t> samples(not_there_yet ? 0 : bytes / sizeof(std::int16_t));
        std::ifstream(heard_file(), std::ios::binary)
            .read(reinterpret_cast<char*>(samples.data()), static_cast<std::streamsize>(samples.size() * 2));
        return samples;
    }
    /// How many frames of stereo at 44100 a second stood at a level, as the device got them.
    [[nodiscard]] std::ptrdiff_t frames_at(float level) const {
        return std::ranges::count_if(heard(), [&](std::int16_t s) { return std::abs(s - level * 32767.0F) < 100.0F; }) / 2;
    }
    [[nodiscard]] bool hears(float level, std::ptrdiff_t frames) const {
        const auto deadline = std::chrono::steady_clock::now() + 10s;
        while (frames_at(level) < frames) {
            if (std::chrono::steady_clock::now() > deadline) return false;
            std::this_thread::yield();
        }
        return true;
    }

    const fs::path folder_ = fs::temp_directory_path() / ("marrowfen-audio-" + std::to_string(getpid()));
    const DiskFiles files_{folder_};
};

TEST_F(AudioTest, ASoundIsHeardWholeWhateverItsFileIsCalledAndHoweverItIsRecorded) {
    record("Ding.wav", 0.25F, 0.2, SF_FORMAT_AU | SF_FORMAT_PCM_16, 22050, 1);
    record("magic.au", -0.5F, 0.2, SF_FORMAT_WAV | SF_FORMAT_FLOAT, 48000, 2);
    SdlSound sound(files_);
    sound.start(path("\\ding.WAV"));
    EXPECT_TRUE(hears(0.25F, 8700));
    sound.start(path("magic.au"));
    EXPECT_TRUE(hears(-0.5F, 8700));
}

TEST_F(AudioTest, ANewSoundCutsTheRunningOneOff) {
    record("long.wav", 0.25F, 20, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 44100, 1);
    record("short.wav", -0.5F, 0.2, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 44100, 1);
    {
        SdlSound sound(files_);
        sound.start(path("long.wav"));
        ASSERT_TRUE(hears(0.25F, 1000));
        sound.start(path("short.wav"));
        ASSERT_TRUE(hears(-0.5F, 8600));
    }
    const auto samples = heard();
    const auto first_of_short = std::ranges::find_if(samples, [](int s) { return s < -16000; }) - samples.begin();
    const auto last_of_long = samples.rend() - std::find_if(samples.rbegin(), samples.rend(), [](int s) { return s > 8000; });
    EXPECT_LE(last_of_long, first_of_short);
    EXPECT_LT(first_of_short - last_of_long, 2 * 44100 * 5 / 1000) << "only a short fade lies between them";
}

TEST_F(AudioTest, WhatIsNoCueIsSilenceAndDoesNoHarm) {
    std::ofstream(folder_ / "broken.wav") << "RIFF this is no sound at all";
    fs::create_directory(folder_ / "folder.wav");
    record("endless.wav", 0.25F, 61, SF_FORMAT_WAV | SF_FORMAT_PCM_U8, 8000, 1);
    record("good.wav", -0.5F, 0.1, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 44100, 1);
    SdlSound sound(files_);
    for (const auto* name : {"missing.wav", "broken.wav", "folder.wav", "endless.wav", ""}) sound.start(path(name));
    sound.start(path("endless.wav"));
    sound.start(path("good.wav"));
    EXPECT_TRUE(hears(-0.5F, 4300));
    EXPECT_EQ(frames_at(0.25F), 0);
}

TEST_F(AudioTest, WithoutADeviceTheGameGoesOn) {
    setenv("SDL_AUDIODRIVER", "bogus", 1);
    record("good.wav", -0.5F, 0.1, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 44100, 1);
    const auto start = std::chrono::steady_clock::now();
    {
        SdlSound sound(files_);
        for (int i = 0; i < 100; ++i) sound.start(path("good.wav"));
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, 3s);
    EXPECT_FALSE(fs::exists(heard_file()));
}

}  // namespace
}  // namespace marrowfen
