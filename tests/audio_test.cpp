#include <gtest/gtest.h>
#include <sndfile.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <ranges>
#include <string>
#include <thread>
#include <vector>

#include "platform/audio/late_sound.h"
#include "platform/system/disk_files.h"
#include "temporary_folder.h"

namespace marrowfen {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

/// A room whose loudspeaker is a file: what sounds there can be read afterwards.
class AudioTest : public testing::Test {
protected:
    AudioTest() {
        fs::create_symlink(MARROWFEN_SOUND_LIBRARY, library());
        setenv("SDL_AUDIODRIVER", "disk", 1);
        setenv("SDL_DISKAUDIOFILE", heard_file().c_str(), 1);
    }

    [[nodiscard]] fs::path library() const { return folder_ / "libmarrowfen-sound.so"; }
    [[nodiscard]] fs::path heard_file() const { return folder_ / "heard.raw"; }
    [[nodiscard]] std::string path(const std::string& name) const { return files_.program_folder() + "\\" + name; }

    /// A sound that holds one level all the time, so that it can be told from another one.
    void record(const std::string& name, float level, double seconds, int format = SF_FORMAT_WAV | SF_FORMAT_PCM_16,
                int rate = 44100, int channels = 1) const {
        SF_INFO info{0, rate, channels, format, 0, 0};
        SNDFILE* file = sf_open((folder_ / name).c_str(), SFM_WRITE, &info);
        const std::vector<float> samples(static_cast<std::size_t>(seconds * rate * channels), level);
        sf_write_float(file, samples.data(), static_cast<sf_count_t>(samples.size()));
        sf_close(file);
    }

    /// Both channels, 44100 times a second.
    [[nodiscard]] std::vector<std::int16_t> heard() const {
        std::error_code not_there_yet;
        const auto bytes = fs::file_size(heard_file(), not_there_yet);
        std::vector<std::int16_t> samples(not_there_yet ? 0 : bytes / 2);
        std::ifstream(heard_file(), std::ios::binary)
            .read(reinterpret_cast<char*>(samples.data()), std::ssize(samples) * 2);
        return samples;
    }
    [[nodiscard]] std::ptrdiff_t frames_at(float level) const {
        const auto is_at_level = [&](std::int16_t s) { return std::abs(s - level * 32767.0F) < 100.0F; };
        return std::ranges::count_if(heard(), is_at_level) / 2;
    }
    [[nodiscard]] bool hears(float level, std::ptrdiff_t frames) const {
        return comes_true([&] { return frames_at(level) >= frames; });
    }
    [[nodiscard]] bool falls_silent() const {
        return comes_true([this] {
            const auto latest = heard() | std::views::reverse | std::views::take(4000);
            return std::ranges::all_of(latest, [](int s) { return s == 0; });
        });
    }
    [[nodiscard]] static bool comes_true(const std::function<bool()>& fact) {
        const auto deadline = std::chrono::steady_clock::now() + 10s;
        while (!fact() && std::chrono::steady_clock::now() < deadline) std::this_thread::yield();
        return fact();
    }

    const TemporaryFolder temporary_;
    const fs::path& folder_ = temporary_.path();
    const DiskFiles files_{folder_};
};

TEST_F(AudioTest, ASoundIsHeardWholeWhateverItsFileIsCalledAndHoweverItIsRecorded) {
    record("Ding.wav", 0.25F, 0.2, SF_FORMAT_AU | SF_FORMAT_PCM_16, 22050);
    record("magic.au", -0.5F, 0.2, SF_FORMAT_WAV | SF_FORMAT_FLOAT, 48000, 2);
    LateSound sound(files_);
    sound.start(path("\\ding.WAV"));
    EXPECT_TRUE(hears(0.25F, 8700));
    sound.start(path("magic.au"));
    EXPECT_TRUE(hears(-0.5F, 8700));
}

TEST_F(AudioTest, ANewSoundCutsTheRunningOneOff) {
    record("long.wav", 0.25F, 20);
    record("short.wav", -0.5F, 0.2);
    {
        LateSound sound(files_);
        sound.start(path("long.wav"));
        ASSERT_TRUE(hears(0.25F, 1000));
        sound.start(path("short.wav"));
        ASSERT_TRUE(hears(-0.5F, 8600));
    }
    const auto samples = heard();
    const auto cut = std::ranges::find_if(samples, [](int s) { return s < 0; });
    EXPECT_EQ(std::find_if(cut, samples.end(), [](int s) { return s > 0; }), samples.end());
    // The wave of the old one does not break off, which would click, but fades out under the new one.
    EXPECT_NEAR(*cut, (0.25 - 0.5) * 32767, 300);
    const auto new_one = std::find_if(cut, samples.end(), [](int s) { return s < -16000; });
    EXPECT_LT(new_one - cut, 2 * 44100 * 5 / 1000);
    EXPECT_TRUE(std::is_sorted(cut, new_one, std::greater<>()));
}

TEST_F(AudioTest, WhatIsNoCueIsSilenceAndDoesNoHarm) {
    std::ofstream(folder_ / "broken.wav") << "RIFF this is no sound at all";
    fs::create_directory(folder_ / "folder.wav");
    record("endless.wav", 0.25F, 61, SF_FORMAT_WAV | SF_FORMAT_PCM_U8, 8000);
    record("long.wav", -0.5F, 20);
    LateSound sound(files_);
    for (const auto* name : {"missing.wav", "broken.wav", "folder.wav", "endless.wav", ""}) {
        sound.start(path("long.wav"));
        ASSERT_TRUE(hears(-0.5F, frames_at(-0.5F) + 1000)) << "before " << name;
        sound.start(path(name));
        EXPECT_TRUE(falls_silent()) << name;
    }
    EXPECT_EQ(frames_at(0.25F), 0);
}

TEST_F(AudioTest, WithoutADeviceOrWhatMakesSoundTheGameGoesOn) {
    record("good.wav", -0.5F, 0.1);
    const auto plays = [this] {
        LateSound sound(files_);
        for (int i = 0; i < 100; ++i) sound.start(path("good.wav"));
    };
    setenv("SDL_AUDIODRIVER", "bogus", 1);
    plays();
    setenv("SDL_AUDIODRIVER", "disk", 1);
    fs::remove(library());
    plays();
    std::ofstream(library()) << "no library";
    plays();
    EXPECT_FALSE(fs::exists(heard_file()));
    fs::remove(library());
    fs::create_symlink(MARROWFEN_SOUND_LIBRARY, library());
    LateSound sound(files_);
    sound.start(path("good.wav"));
    EXPECT_TRUE(hears(-0.5F, 4300));
}

}  // namespace
}  // namespace marrowfen
