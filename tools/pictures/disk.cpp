#include "disk.h"

#include <algorithm>
#include <fstream>
#include <optional>
#include <system_error>
#include <vector>

#include "../failure.h"

namespace marrowfen {

namespace fs = std::filesystem;

namespace {

constexpr const char* kUnfinished = ".new";

std::optional<std::string> bytes_of(const fs::path& file) {
    std::error_code error;
    if (!fs::is_regular_file(file, error)) return std::nullopt;
    std::string bytes(fs::file_size(file, error), '\0');
    std::ifstream in(file, std::ios::binary);
    if (error || !in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()))) return std::nullopt;
    return bytes;
}

bool is_picture(fs::path file) {
    if (file.extension() == kUnfinished) file.replace_extension();
    const fs::path extension = file.extension();
    return extension == ".bmp" || extension == ".BMP";
}

}  // namespace

std::string read_bytes(const fs::path& file, const std::string& what) {
    std::optional<std::string> bytes = bytes_of(file);
    if (!bytes) throw Failure(what + " " + file.string() + " is missing or can't be read.");
    return std::move(*bytes);
}

void write_if_changed(const fs::path& file, const std::string& bytes) {
    if (bytes_of(file) == bytes) return;
    std::error_code error;
    fs::create_directories(file.parent_path(), error);
    if (error) throw Failure("The folder " + file.parent_path().string() + " can't be made: " + error.message() + ".");
    fs::path unfinished = file;
    unfinished += kUnfinished;
    std::ofstream out(unfinished, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    if (out) fs::rename(unfinished, file, error);
    if (!out || error) throw Failure("The picture " + file.string() + " can't be written.");
}

void remove_other_pictures(const fs::path& folder, const std::set<std::string>& kept) {
    std::error_code error;
    if (!fs::exists(folder, error)) return;
    std::vector<fs::path> others;
    for (fs::recursive_directory_iterator entry(folder, error); !error && entry != fs::end(entry);
         entry.increment(error)) {
        const fs::path& file = entry->path();
        const std::string name = file.lexically_relative(folder).generic_string();
        if (is_picture(file) && !kept.contains(name)) others.push_back(file);
    }
    for (const fs::path& file : others) {
        if (!error) fs::remove(file, error);
    }
    if (error) throw Failure("The folder " + folder.string() + " can't be tidied: " + error.message() + ".");
}

}  // namespace marrowfen
