#include "school/faults.h"

#include <algorithm>

namespace marrowfen {

void Faults::add(const std::filesystem::path& file, int line, const std::string& reason,
                 std::optional<std::size_t> column) {
    constexpr std::size_t kMostPlaces = 2000;  // more than a table of somebody's own has cells
    if (places_.size() < kMostPlaces) places_.push_back({line, column, reason});
    constexpr std::size_t kMostTold = 20;  // they fit a screen, and the first few say what is the matter
    const std::string name = file.generic_string();
    auto faults = std::ranges::find(files_, name, &OfOneFile::file);
    if (faults == files_.end()) faults = files_.insert(faults, {name, {}, 0});
    if (faults->lines.size() < kMostTold) {
        faults->lines.push_back(name + ":" + std::to_string(line) + ": " + reason);
    } else {
        ++faults->untold;
    }
}

std::vector<std::string> Faults::lines() const {
    std::vector<std::string> all;
    for (const OfOneFile& faults : files_) {
        all.insert(all.end(), faults.lines.begin(), faults.lines.end());
        if (faults.untold > 0) all.push_back(faults.file + ": " + std::to_string(faults.untold) + " more like these");
    }
    return all;
}

}  // namespace marrowfen
