// Measures the sounds as they were built: each is what its game needs, and none hurts or startles a pupil.

#include <gtest/gtest.h>
#include <sndfile.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <map>
#include <numeric>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr int kRate = 44100;
const fs::path kFolder = MARROWFEN_SOUND_FOLDER;
using Samples = std::vector<double>;
struct Sound {
    double shortest, longest;  // seconds that it may last
    SF_INFO info{};
    Samples samples{};
};

/// By the name below the folder of sounds that the games hand out.
std::map<std::string, Sound> wanted_sounds() {
    std::map<std::string, Sound> wanted{
        {"donkey.au", {0.3, 1.5}}, {"magic.au", {0.15, 1.5}},    {"ding.wav", {0.15, 1.5}},
        {"Cling.au", {0.15, 1.5}}, {"Steely~1.au", {0.15, 1.5}}, {"Applause.wav", {2, 4}},
    };
    for (const char key : std::string("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789")) {
        wanted["Phonics/Lower_Case/" + std::string(1, key) + ".wav"] = {0.2, 0.9};
    }
    return wanted;
}

bool is_letter_sound(const std::string& name) { return name.starts_with("Phonics/"); }
double decibels(double level) { return 20 * std::log10(std::max(level, 1e-9)); }

double peak(const Samples& samples, std::size_t first = 10'000'000) {
    double highest = 0;
    for (std::size_t i = 0; i < std::min(first, samples.size()); ++i) highest = std::max(highest, std::abs(samples[i]));
    return highest;
}

double loudest_half_second(const Samples& samples) {
    const std::size_t window = std::min<std::size_t>(kRate / 2, samples.size());
    double loudest = 0;
    for (std::size_t begin = 0; begin + window <= samples.size(); begin += 64) {
        const double* const first = samples.data() + begin;
        loudest = std::max(loudest, std::inner_product(first, first + window, first, 0.0));
    }
    return decibels(std::sqrt(loudest / static_cast<double>(window)));
}

/// 1 for one sound at two levels, about 0 for two sounds.
double likeness(Samples one, const Samples& other) {
    one.resize(other.size());
    const auto dot = [](const Samples& a, const Samples& b) {
        return std::inner_product(begin(a), end(a), begin(b), 0.0);
    };
    return std::abs(dot(one, other)) / std::sqrt(dot(one, one) * dot(other, other));
}

/// The share that lies above some 6 kHz, in decibels.
double sharpness(const Samples& samples) {
    Samples sharp = samples;
    double slow = 0;
    double slower = 0;
    for (double& sample : sharp) {
        slow += 0.575 * (sample - slow);
        slower += 0.575 * (sample - slow - slower);
        sample -= slow + slower;
    }
    return loudest_half_second(sharp) - loudest_half_second(samples);
}

class BuiltSounds : public testing::Test {
protected:
    void SetUp() override {
        for (auto& [name, sound] : sounds) {
            SNDFILE* const file = sf_open((kFolder / name).string().c_str(), SFM_READ, &sound.info);
            ASSERT_NE(file, nullptr) << name << ": " << sf_strerror(nullptr);
            sound.samples.resize(static_cast<std::size_t>(sound.info.frames * sound.info.channels));
            const sf_count_t frames = sf_readf_double(file, sound.samples.data(), sound.info.frames);
            sf_close(file);
            ASSERT_TRUE(frames == sound.info.frames && peak(sound.samples) > 0) << name << " is cut off or silent";
        }
    }

    std::map<std::string, Sound> sounds = wanted_sounds();
};

TEST_F(BuiltSounds, StandUnderTheirNamesInTheFormatOfTheirExtension) {
    std::set<std::string> found;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(kFolder)) {
        const fs::path name = entry.path().lexically_relative(kFolder);
        const bool hidden = name.filename().string().starts_with('.');  // the build's own marks
        if (!entry.is_directory() && !hidden) found.insert(name.generic_string());
    }
    for (const auto& [name, sound] : sounds) {
        EXPECT_EQ(found.erase(name), 1U) << name << " in just this spelling";
        EXPECT_EQ(sound.info.format, (name.ends_with(".au") ? SF_FORMAT_AU : SF_FORMAT_WAV) | SF_FORMAT_PCM_16) << name;
        EXPECT_TRUE(sound.info.samplerate == kRate && sound.info.channels == 1) << name;
        const double seconds = static_cast<double>(sound.info.frames) / kRate;
        EXPECT_TRUE(sound.shortest <= seconds && seconds <= sound.longest) << name << " lasts " << seconds << " s";
    }
    EXPECT_TRUE(found.empty()) << *found.begin() << " is none of the sounds";
}

TEST_F(BuiltSounds, AreEquallyLoudAndNeverClipOrSting) {
    std::map<double, std::string> by_loudness;
    for (const auto& [name, sound] : sounds) {
        by_loudness[loudest_half_second(sound.samples)] = name;
        EXPECT_LE(decibels(peak(sound.samples)), -1) << name;
        EXPECT_LE(sharpness(sound.samples), is_letter_sound(name) ? -10 : -20) << name << " hisses";
    }
    const auto& [softest, soft] = *by_loudness.begin();
    EXPECT_GE(softest, -22) << soft << " is lost in a classroom";
    EXPECT_LE(by_loudness.rbegin()->first - softest, 3)
        << soft << " is too soft beside " << by_loudness.rbegin()->second;
}

TEST_F(BuiltSounds, BeginAndEndWithoutAClickAndLettersWithoutAPause) {
    for (auto& [name, sound] : sounds) {
        for (const std::string end : {" at its beginning", " at its end"}) {
            EXPECT_EQ(sound.samples.front(), 0) << name << end;
            EXPECT_LT(peak(sound.samples, kRate / 2000), 0.1 * peak(sound.samples)) << name << " clicks" << end;
            const bool pauses = decibels(peak(sound.samples, kRate / 50) / peak(sound.samples)) < -45;
            EXPECT_FALSE(pauses && is_letter_sound(name)) << name << " is silent" << end;
            std::ranges::reverse(sound.samples);
        }
    }
}

TEST_F(BuiltSounds, DifferFromEachOtherButForTheTwoLettersThatSayTheSame) {
    for (auto one = sounds.begin(); one != sounds.end(); ++one) {
        for (auto other = std::next(one); other != sounds.end(); ++other) {
            const std::string both = one->first + " and " + other->first;
            const bool alike = likeness(one->second.samples, other->second.samples) > 0.9;
            EXPECT_EQ(alike, both == "Phonics/Lower_Case/C.wav and Phonics/Lower_Case/K.wav") << both;
        }
    }
}

}  // namespace
