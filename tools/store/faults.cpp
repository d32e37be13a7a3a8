#include "faults.h"

namespace marrowfen {

void Faults::add(const std::filesystem::path& file, int line, const std::string& reason) {
    lines_.push_back(file.generic_string() + ":" + std::to_string(line) + ": " + reason);
}

}  // namespace marrowfen
