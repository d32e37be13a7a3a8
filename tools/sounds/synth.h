#pragma once

#include "cue_recipe.h"
#include "samples.h"

namespace marrowfen {

/// Plays a recipe: its layers, then its room. The level is as the layers give it, and may exceed full scale.
[[nodiscard]] Samples play(const CueRecipe& recipe);

}  // namespace marrowfen
