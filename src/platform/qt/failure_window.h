#pragma once

#include <string>

#include "platform/files.h"

namespace marrowfen {

/// Tells a person why the program can't start, in a window of its own, and waits until it is closed. `sentence` says
/// what is wrong and what to do about it. Needs the toolkit, but no display.
void show_start_failure(const Files& files, const std::string& sentence);

}  // namespace marrowfen
