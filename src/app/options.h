#pragma once

#include <filesystem>
#include <optional>

namespace marrowfen {

/// What stands on the command line. At most one of the two files is given.
struct Options {
    std::filesystem::path record;
    std::filesystem::path replay;
    bool fast = false;  ///< replay without waiting
};

/// Nothing: the program ends with `status`, and all that is to be said has been said.
[[nodiscard]] std::optional<Options> read_options(int argc, char** argv, int& status);

}  // namespace marrowfen
