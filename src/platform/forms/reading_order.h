#pragma once

#include <vector>

#include "platform/forms/geometry.h"

namespace marrowfen {

class Control;

[[nodiscard]] Rect on_screen(const Control& control);  ///< its bounds, in twips on the screen

/// Rows as an eye finds them: what has its middle beside the first of a row stands in that row.
void sort_for_reading(std::vector<Control*>& controls);

}  // namespace marrowfen
