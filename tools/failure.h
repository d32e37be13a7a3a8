#pragma once

#include <cstdlib>
#include <iostream>
#include <stdexcept>

namespace marrowfen {

/// Ends a build tool: the text is the one sentence that the person at the build reads.
struct Failure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Does a build tool's work and gives its exit code. Whatever goes wrong is said on the error output.
template <class Work>
int run_tool(const Work& work) {
    try {
        work();
        return EXIT_SUCCESS;
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return EXIT_FAILURE;
    }
}

}  // namespace marrowfen
