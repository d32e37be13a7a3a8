#pragma once

#include <stdexcept>

namespace marrowfen {

/// Ends the program: the text is the one sentence that the person at the build reads.
struct Failure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

}  // namespace marrowfen
