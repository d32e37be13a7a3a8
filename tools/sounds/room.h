#pragma once

#include "samples.h"

namespace marrowfen {

/// Adds what the walls of a small room send back within the first hundredths of a second.
/// `level` is that of all echoes beside the sound itself; `size` is the way of the longest of them, in seconds.
void add_room(Samples& sound, double level, double size);

}  // namespace marrowfen
