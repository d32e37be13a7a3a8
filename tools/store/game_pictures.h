#pragma once

#include <vector>

#include "content.h"
#include "tables/picture_list.h"

namespace marrowfen {

/// Every picture that the games, their rules and the typing tests ask for, once. Needs content without faults.
[[nodiscard]] std::vector<ListedPicture> pictures_for(const Content& content);

}  // namespace marrowfen
