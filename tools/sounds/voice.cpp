#include "voice.h"

#include <algorithm>
#include <numbers>

#include "filters.h"

namespace marrowfen {
namespace {

constexpr double kPi = std::numbers::pi;
constexpr double kOpening = 0.42;  // shares of one cycle of the vocal folds
constexpr double kSoftClosing = 0.25;
constexpr double kHardClosing = 0.03;

/// Vocal folds. Gravel comes from cycles that differ in length and strength, and from every second one being weak.
class GlottalSource {
public:
    GlottalSource(const Layer& layer, Dice& dice)
        : rough_(layer.rough),
          breath_(layer.breath),
          closing_(std::lerp(kSoftClosing, kHardClosing, layer.edge)),
          dice_(dice) {}

    [[nodiscard]] double next(double hz) {
        constexpr int kSteps = 4;  // the folds close faster than one sample can tell
        double puff = 0;
        for (int step = 0; step < kSteps; ++step) {
            phase_ += hz * hurry_ / kRate / kSteps;
            if (phase_ >= 1) begin_cycle();
            puff += flow() * strength_ / kSteps;
        }
        const double pressed = (puff - last_) * kRate / hz * 0.12;  // lips turn flow into its change
        last_ = puff;
        return pressed + breath_ * dice_.noise() * (0.25 + 0.75 * puff);
    }

private:
    /// The air that passes at this place of the cycle.
    [[nodiscard]] double flow() const {
        if (phase_ < kOpening) return 0.5 - 0.5 * std::cos(kPi * phase_ / kOpening);
        if (phase_ < kOpening + closing_) return std::cos(kPi / 2 * (phase_ - kOpening) / closing_);
        return 0;
    }

    void begin_cycle() {
        phase_ -= std::floor(phase_);
        weak_ = !weak_;
        hurry_ = 1 + rough_ * dice_.between(-0.14, 0.14);
        strength_ = (1 - rough_ * dice_.between(0, 0.45)) * (weak_ ? 1 - 0.6 * rough_ : 1);
    }

    double rough_, breath_, closing_;
    Dice& dice_;
    double phase_ = 0, hurry_ = 1, strength_ = 1, last_ = 0;
    bool weak_ = false;
};

double bandwidth(double hz) { return 50 + 0.045 * hz; }

}  // namespace

Samples sing(const Layer& layer, std::size_t length, double pitch, double size, Dice& dice) {
    constexpr std::size_t kSteady = 32;  // samples for which a mouth may be taken to stand still
    GlottalSource source(layer, dice);
    std::vector<Formant> throat(layer.mouth.size());
    double sway = 0;  // no one holds a pitch to the hertz
    Samples sound(length);
    for (std::size_t i = 0; i < length; ++i) {
        const double part = static_cast<double>(i) / static_cast<double>(length);
        if (i % kSteady == 0) {
            for (std::size_t f = 0; f < throat.size(); ++f) {
                const double hz = layer.mouth[f].at(part) * size;
                throat[f].tune(hz, bandwidth(hz) * layer.throat);
            }
            sway = 0.98 * sway + 0.004 * dice.noise();
        }
        double sample = source.next(layer.hz.at(part) * pitch * (1 + sway));
        for (Formant& formant : throat) sample = formant.pass(sample);
        sound[i] = sample;
    }
    return sound;
}

}  // namespace marrowfen
