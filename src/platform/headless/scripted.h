#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "platform/clock.h"
#include "platform/files.h"
#include "platform/random.h"
#include "platform/sound_device.h"

namespace marrowfen {

/// Hands out the numbers that were laid down; after them, or without any, a fixed sequence that reaches every key.
class ScriptedRandom final : public Random {
public:
    void script(const std::vector<float>& draws) { draws_.insert(draws_.end(), draws.begin(), draws.end()); }
    /// The next draw from 1 to n comes out as `result`.
    void script_draw(int result, int n) {
        draws_.push_back((static_cast<float>(result) - 0.5F) / static_cast<float>(n));
    }
    [[nodiscard]] std::size_t unused() const { return draws_.size(); }
    [[nodiscard]] bool seeded() const { return seeded_; }

    void seed_from_clock() override { seeded_ = true; }
    [[nodiscard]] float next() override {
        if (!draws_.empty()) {
            const float draw = draws_.front();
            draws_.pop_front();
            return draw;
        }
        constexpr std::uint32_t kMultiplier = 1664525;
        constexpr std::uint32_t kIncrement = 1013904223;
        sequence_ = sequence_ * kMultiplier + kIncrement;
        return static_cast<float>(sequence_ >> 8U) * 0x1p-24F;
    }

private:
    std::deque<float> draws_;
    std::uint32_t sequence_ = 20;
    bool seeded_ = false;
};

/// Remembers the cues that it was asked for, by the part of their path that follows the sound folder.
class SoundRecorder final : public SoundDevice {
public:
    void start(std::string_view path) override {
        paths_.emplace_back(path);
        constexpr std::string_view kFolder = "\\Sound\\";
        const auto folder = path.find(kFolder);
        heard_.emplace_back(folder == std::string_view::npos ? path : path.substr(folder + kFolder.size()));
    }
    [[nodiscard]] const std::vector<std::string>& heard() const { return heard_; }
    [[nodiscard]] const std::vector<std::string>& paths() const { return paths_; }
    void forget() { heard_.clear(), paths_.clear(); }

private:
    std::vector<std::string> heard_;
    std::vector<std::string> paths_;
};

class ScriptedClock final : public Clock {
public:
    std::chrono::year_month_day date{std::chrono::year{2026}, std::chrono::month{3}, std::chrono::day{9}};
    std::chrono::seconds time{std::chrono::hours{10} + std::chrono::minutes{5}};

    [[nodiscard]] std::chrono::year_month_day today() const override { return date; }
    [[nodiscard]] std::chrono::seconds time_of_day() const override { return time; }
    [[nodiscard]] std::string short_date(std::chrono::year_month_day day) const override {
        return std::to_string(static_cast<unsigned>(day.day())) + "/" +
               std::to_string(static_cast<unsigned>(day.month())) + "/" + std::to_string(static_cast<int>(day.year()));
    }
};

}  // namespace marrowfen
