#pragma once

#include <optional>
#include <string>

#include "copies/copies.h"
#include "platform/clock.h"

namespace marrowfen {

/// What to tell a person when the store can't be opened as the program starts: what is wrong and what to do about it,
/// with the date of the newest good copy where a copy is of any use. Looks the copies through for that.
[[nodiscard]] std::string start_advice(const StoreFailure& failure, const Copies& copies, const Clock& clock);

}  // namespace marrowfen
