#pragma once

#include <random>

#include "platform/clock.h"
#include "platform/random.h"
#include "platform/sound_device.h"
#include "platform/store.h"
#include "replay/tape.h"

namespace marrowfen {

// The world outside, with each question and answer on a tape. Playing, there need be no world: nullptr.

class TapedStoreEngine final : public StoreEngine {
public:
    TapedStoreEngine(Tape& tape, StoreEngine* world) : tape_(tape), world_(world) {}
    [[nodiscard]] Result<std::unique_ptr<Store>> open(std::string_view path) override;

private:
    Tape& tape_;
    StoreEngine* world_;
    std::size_t row_sets_ = 0;  // opened so far, which gives each its name on the tape
};

class TapedSound final : public SoundDevice {
public:
    TapedSound(Tape& tape, SoundDevice* world) : tape_(tape), world_(world) {}
    void start(std::string_view path) override;

private:
    Tape& tape_;
    SoundDevice* world_;
};

class TapedClock final : public Clock {
public:
    TapedClock(Tape& tape, const Clock* world) : tape_(tape), world_(world) {}
    [[nodiscard]] std::chrono::year_month_day today() const override;
    [[nodiscard]] std::chrono::seconds time_of_day() const override;
    [[nodiscard]] std::string short_date(std::chrono::year_month_day date) const override;

private:
    Tape& tape_;
    const Clock* world_;
};

class TapedRandom final : public Random {
public:
    TapedRandom(Tape& tape, Random* world) : tape_(tape), world_(world) {}
    void seed_from_clock() override;
    [[nodiscard]] float next() override;

private:
    Tape& tape_;
    Random* world_;
    std::minstd_rand lost_;  // where the tape has no answer: whoever draws until something fits must come to an end
};

}  // namespace marrowfen
