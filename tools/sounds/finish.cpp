#include "finish.h"

#include <algorithm>
#include <deque>

#include "filters.h"

namespace marrowfen {
namespace {

constexpr double kCommonLoudness = -17.5;  // dB below full scale
constexpr double kCeiling = -1.6;          // dB below full scale; what a player adds between samples stays under it too
constexpr double kLowsTo = 160;            // Hz; a tablet plays nothing below, so it must not count as loudness
constexpr double kHighsFrom = 7000;        // Hz
constexpr double kHighsDown = -5;          // dB
constexpr double kEndFade = 0.003;         // seconds
constexpr double kSilence = -45;           // dB below the loudest sample
constexpr double kKeptSilence = 0.005;     // seconds
constexpr double kLimiterReach = 0.0025;   // seconds to either side of a peak

double peak(const Samples& sound) {
    double highest = 0;
    for (const double sample : sound) highest = std::max(highest, std::abs(sample));
    return highest;
}

/// The lowest gain that any sample within `reach` asks for.
Samples lowest_nearby(const Samples& gains, std::size_t reach) {
    Samples lowest(gains.size());
    std::deque<std::size_t> rising;  // places of gains, each lower than all that follow it
    for (std::size_t i = 0; i < gains.size() + reach; ++i) {
        if (i < gains.size()) {
            while (!rising.empty() && gains[rising.back()] >= gains[i]) rising.pop_back();
            rising.push_back(i);
        }
        if (i < reach) continue;
        if (rising.front() + 2 * reach < i) rising.pop_front();
        lowest[i - reach] = gains[rising.front()];
    }
    return lowest;
}

Samples averaged_nearby(const Samples& values, std::size_t reach) {
    const auto last = static_cast<std::ptrdiff_t>(values.size()) - 1;
    const auto wide = static_cast<std::ptrdiff_t>(reach);
    const auto at = [&](std::ptrdiff_t i) {
        return values[static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(i, 0, last))];
    };
    Samples averages(values.size());
    double sum = 0;
    for (std::ptrdiff_t i = -wide; i <= wide; ++i) sum += at(i);
    for (std::ptrdiff_t i = 0; i <= last; ++i) {
        averages[static_cast<std::size_t>(i)] = sum / static_cast<double>(2 * wide + 1);
        sum += at(i + wide + 1) - at(i - wide);
    }
    return averages;
}

/// Bends the level around each peak that would go over the ceiling. The average over `reach` of gains that are
/// already low enough for `reach` around is low enough too, so no peak slips through.
void limit(Samples& sound, double ceiling) {
    const std::size_t reach = samples_in(kLimiterReach);
    Samples gains(sound.size());
    for (std::size_t i = 0; i < sound.size(); ++i)
        gains[i] = std::min(1.0, ceiling / std::max(std::abs(sound[i]), 1e-9));
    gains = averaged_nearby(lowest_nearby(gains, reach), reach);
    for (std::size_t i = 0; i < sound.size(); ++i) sound[i] *= gains[i];
}

void fade_ends(Samples& sound) {
    const double last = seconds_of(sound.size() - 1);
    for (std::size_t i = 0; i < sound.size(); ++i) {
        const double now = seconds_of(i);
        sound[i] *= raised_cosine(now / kEndFade) * raised_cosine((last - now) / kEndFade);
    }
}

}  // namespace

Samples trimmed(const Samples& sound) {
    const double floor = peak(sound) * from_decibels(kSilence);
    const auto heard = [floor](double sample) { return std::abs(sample) > floor; };
    const auto first = std::find_if(sound.begin(), sound.end(), heard);
    const auto last = std::find_if(sound.rbegin(), sound.rend(), heard).base();
    if (first == sound.end()) return {};
    const auto kept = static_cast<std::ptrdiff_t>(samples_in(kKeptSilence));
    return {first - std::min(kept, first - sound.begin()), last + std::min(kept, sound.end() - last)};
}

void fade_out(Samples& sound, double seconds) {
    const double end = seconds_of(sound.size());
    if (seconds <= 0) return;
    for (std::size_t i = 0; i < sound.size(); ++i)
        sound[i] *= raised_cosine((end - seconds_of(i)) / std::min(seconds, end));
}

bool finish(Samples& sound, double decibels) {
    constexpr int kTries = 12;
    constexpr double kNear = 0.1;  // dB
    if (sound.empty() || loudness(sound) <= 0) return false;
    high_pass(sound, kLowsTo);
    high_shelf(sound, kHighsFrom, kHighsDown);
    fade_ends(sound);
    for (int attempt = 0; attempt < kTries; ++attempt) {
        const double missing = kCommonLoudness + decibels - 20 * std::log10(loudness(sound));
        if (std::abs(missing) < kNear && peak(sound) <= from_decibels(kCeiling) + 1e-6) return true;
        for (double& sample : sound) sample *= from_decibels(missing);
        limit(sound, from_decibels(kCeiling));
    }
    return false;
}

double loudness(const Samples& sound) {
    const std::size_t window = std::min(samples_in(0.5), sound.size());
    if (window == 0) return 0;
    double sum = 0;
    double loudest = 0;
    for (std::size_t i = 0; i < sound.size(); ++i) {
        sum += sound[i] * sound[i];
        if (i >= window) sum -= sound[i - window] * sound[i - window];
        if (i + 1 >= window) loudest = std::max(loudest, sum);
    }
    return std::sqrt(loudest / static_cast<double>(window));
}

}  // namespace marrowfen
