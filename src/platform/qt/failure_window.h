#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/files.h"

namespace marrowfen {

/// Tells a person why the program can't start, in a window of its own. It asks `try_again` now and then, and when the
/// person wants it to, and tells what that says instead; nothing to say means that the program can start. True: it can;
/// false: the person has closed the window. Needs the toolkit, but no display.
[[nodiscard]] bool show_start_failure(const Files& files, const std::string& sentence,
                                      const std::function<std::optional<std::string>()>& try_again);

}  // namespace marrowfen
