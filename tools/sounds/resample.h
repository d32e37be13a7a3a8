#pragma once

#include "samples.h"

namespace marrowfen {

/// The same sound at kRate samples a second, from `rate`. Nothing is added above the highs that it had, nor folded
/// down where the new rate is the lower one.
[[nodiscard]] Samples resampled(const Samples& sound, double rate);

}  // namespace marrowfen
