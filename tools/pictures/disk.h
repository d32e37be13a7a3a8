#pragma once

#include <filesystem>
#include <set>
#include <string>

namespace marrowfen {

/// The bytes of a file. Throws Failure: `what` says what the file is, as in "The typeface".
std::string read_bytes(const std::filesystem::path& file, const std::string& what);

/// Replaces the file in one step, so that nobody ever reads half a picture. A file that already holds
/// these bytes keeps its date, so that nothing behind it is built again.
void write_if_changed(const std::filesystem::path& file, const std::string& bytes);

/// Removes the pictures below the folder that are not among the kept ones (names below the folder,
/// forward slashes), and what an interrupted build left. Other files are not ours and stay.
void remove_other_pictures(const std::filesystem::path& folder, const std::set<std::string>& kept);

}  // namespace marrowfen
