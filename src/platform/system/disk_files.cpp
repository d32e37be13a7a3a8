#include "platform/system/disk_files.h"

#include <algorithm>
#include <ranges>
#include <system_error>

#include "platform/letter_case.h"

namespace marrowfen {

namespace {

std::optional<std::filesystem::path> find_in(const std::filesystem::path& folder, std::string_view name) {
    std::error_code error;
    // Where the disk does not tell, whoever opens the file shall meet the error: it must not pass for a missing file.
    if (auto exact = folder / name; std::filesystem::exists(exact, error) || error) return exact;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        if (same_name(entry->path().filename().string(), name)) return entry->path();
    }
    return std::nullopt;
}

}  // namespace

DiskFiles::DiskFiles(std::filesystem::path program_folder) : folder_(std::move(program_folder)) {}

std::string DiskFiles::program_folder() const {
    std::string folder = folder_.generic_string();
    std::ranges::replace(folder, '/', '\\');
    while (folder.ends_with('\\')) folder.pop_back();
    return folder;
}

// Paths have no second, short form here, so the long one serves.
std::string DiskFiles::short_program_folder() const { return program_folder(); }

std::optional<std::filesystem::path> DiskFiles::find(std::string_view path) const {
    // What lies in the program's folder is looked up from there, so that only the names in it are compared.
    const std::string folder = program_folder();
    std::filesystem::path found = path.starts_with('\\') ? "/" : "";
    if (path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '\\')) {
        found = folder_;
        path.remove_prefix(folder.size());
    }
    for (const auto part : path | std::views::split('\\')) {
        const std::string_view name(part.begin(), part.end());
        if (name.empty()) continue;
        const auto next = find_in(found, name);
        if (!next) return std::nullopt;
        found = *next;
    }
    return found;
}

}  // namespace marrowfen
