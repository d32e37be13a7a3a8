#include "platform/system/disk.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace marrowfen {

namespace {

constexpr mode_t kAccess = 0777;
constexpr mode_t kReadAndWrite = 0666;

}  // namespace

SoleRight::SoleRight(const std::filesystem::path& file) {
    file_ = open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, kReadAndWrite);
    if (file_ < 0) return;
    struct stat folder {};
    if (stat(file.parent_path().c_str(), &folder) == 0) {
        (void)fchmod(file_,
                     folder.st_mode & kAccess & kReadAndWrite);  // fails where somebody else has made it, and done so
    }
    struct flock whole {};
    whole.l_type = F_WRLCK;
    whole.l_whence = SEEK_SET;
    held_ = fcntl(file_, F_OFD_SETLK, &whole) == 0;
}

SoleRight::~SoleRight() {
    if (file_ >= 0) close(file_);
}

std::error_code make_last(const std::filesystem::path& file_or_folder) {
    const int file = open(file_or_folder.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) return {errno, std::generic_category()};
    const bool done = fsync(file) == 0;
    const std::error_code error = done ? std::error_code{} : std::error_code{errno, std::generic_category()};
    close(file);
    return error;
}

}  // namespace marrowfen
