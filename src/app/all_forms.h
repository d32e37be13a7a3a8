#pragma once

#include "core/program.h"

namespace marrowfen {

/// Tells the program how each of its forms is made.
void define_all_forms(Program& program);

}  // namespace marrowfen
