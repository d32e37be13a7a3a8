#pragma once

#include <cstddef>

#include "cue_recipe.h"
#include "dice.h"
#include "samples.h"

namespace marrowfen {

/// What one throat makes of a layer: `length` samples of puffs through the vocal folds, with their gravel and
/// their air, shaped by the moving mouth. `pitch` and `size` multiply its pitch and its formants.
[[nodiscard]] Samples sing(const Layer& layer, std::size_t length, double pitch, double size, Dice& dice);

}  // namespace marrowfen
