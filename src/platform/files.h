#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace marrowfen {

/// The program's folder, and the way from the names that the logic uses to the real disk. May be asked from any thread:
/// nothing of it changes during a run.
class Files {
public:
    virtual ~Files() = default;
    /// The folder of the running executable, written with backslashes, none at the end.
    [[nodiscard]] virtual std::string program_folder() const = 0;
    /// The same folder in the short form that the sound device wants; empty when there is none.
    [[nodiscard]] virtual std::string short_program_folder() const = 0;
    /// Finds a file without regard to case; `path` is written with backslashes, and empty parts do not count.
    /// Nothing means that it is not there; when the disk does not answer, the path as it is written counts as found.
    [[nodiscard]] virtual std::optional<std::filesystem::path> find(std::string_view path) const = 0;
};

}  // namespace marrowfen
