#pragma once

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace marrowfen {

/// Ends a build tool: the text is what the person at the build reads, one sentence or a line for each fault.
struct Failure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Fails with these lines, if there are any.
inline void fail_with(const std::vector<std::string>& lines) {
    if (lines.empty()) return;
    std::string text = lines.front();
    std::for_each(lines.begin() + 1, lines.end(), [&text](const std::string& line) { text.append("\n").append(line); });
    throw Failure(text);
}

/// Does a build tool's work and gives its exit code. `usage` has a word for the tool and one for each argument that it
/// takes. Whatever goes wrong is said on the error output.
template <class Work>
int run_tool(int argc, char* argv[], std::string_view usage, const Work& work) {
    const std::vector<std::filesystem::path> arguments(argv + 1, argv + argc);
    const auto wanted = std::ranges::count(usage, ' ');
    if (std::ssize(arguments) != wanted) {
        std::cerr << "Usage: " << usage << '\n';
        return EXIT_FAILURE;
    }
    try {
        work(arguments);
        return EXIT_SUCCESS;
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return EXIT_FAILURE;
    }
}

}  // namespace marrowfen
