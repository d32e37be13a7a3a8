#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/forms/form.h"

namespace marrowfen {

/// What a thing on a form is to somebody who can't see it.
enum class Part : std::uint8_t { None, Text, Picture, Button, Switch, Key, Tile, Watch, Field };

/// `None` for what only decorates, is hidden, is covered by its twin or is too small to be seen.
[[nodiscard]] Part part_of(Control& control);
/// What it is called: what its form says it is, or what is written on it, or in front of it if it is a field.
[[nodiscard]] std::string spoken_name(Control& control);
/// All that is anything to a reader, in reading order.
[[nodiscard]] std::vector<Control*> spoken_parts(const Form& form);

}  // namespace marrowfen
