#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "classroom.h"

// What the fuzz targets share. A target is handed bytes that nobody wrote, and must neither crash nor break what always
// holds.

namespace marrowfen {

inline std::string_view as_text(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

/// One file for the whole process, written anew each time.
inline const std::filesystem::path& write_file(std::string_view bytes) {
    static const TemporaryFolder folder;
    static const std::filesystem::path file = folder.path() / "file";
    std::ofstream(file, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return file;
}

inline void must_hold(bool holds, const std::string& otherwise) {
    if (holds) return;
    (void)std::fprintf(stderr, "%s\n", otherwise.c_str());
    std::abort();
}

}  // namespace marrowfen
