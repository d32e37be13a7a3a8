#pragma once

#include "samples.h"

namespace marrowfen {

/// Decibels by which one sound may stand beside the common loudness. Further apart, sounds no longer seem
/// equally loud; within, a hiss can be held back and a hum helped.
inline constexpr double kSoftestBeside = -1.3;
inline constexpr double kLoudestBeside = 1.3;

/// Cuts silence off both ends. What is 45 dB below the loudest sample counts as silence.
[[nodiscard]] Samples trimmed(const Samples& sound);

/// A half-cosine fade over the last `seconds`, or the whole sound where it is shorter.
void fade_out(Samples& sound, double seconds);

/// Makes a sound fit to be heard beside all others: no lows that only rumble, no sting, no click at either end, one
/// loudness (plus `decibels`), and a peak that stays below full scale. False: it has no loudness, or is so spiky that
/// it can't reach this one.
[[nodiscard]] bool finish(Samples& sound, double decibels);

/// RMS over the loudest half second, or over the whole of a shorter sound. Full scale is 1.
[[nodiscard]] double loudness(const Samples& sound);

}  // namespace marrowfen
