#include "platform/system/own_folder.h"

#include <system_error>

namespace marrowfen {

std::filesystem::path own_folder() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
}

}  // namespace marrowfen
