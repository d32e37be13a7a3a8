#pragma once

#include <string>
#include <vector>

namespace marrowfen {

/// Becomes the program `words[0]`, which is a path, with the rest of the words behind it. Returns only when that is not
/// possible, with the status to end with; why has been said on the error output.
[[nodiscard]] int become(const std::vector<std::string>& words);

/// Runs a program to its end, likewise. Whatever it does, the caller goes on; what it has to say it says itself.
void run(const std::vector<std::string>& words);

}  // namespace marrowfen
