#pragma once

#include <string>
#include <vector>

#include "content.h"

namespace marrowfen {

/// Every picture file that a game of this content can ask for, from the folder of key pictures on, with forward
/// slashes. Each folder is written in one spelling, since the program finds files without regard to case.
[[nodiscard]] std::vector<std::string> pictures_for(const Content& content);

}  // namespace marrowfen
