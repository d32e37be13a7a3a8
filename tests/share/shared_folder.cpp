// A folder of a server, as a computer at school has it: everything goes over a wire that can be cut. Two of these over
// one folder are two computers with one share. Locks are the server's own, and nothing is kept in between.
//
// Usage: shared_folder SERVER_FOLDER MODE_FILE MOUNT_POINT, in the foreground, until it is unmounted. The mode file
// holds one word: ok; silent: no answer until it says something else; full: nothing can grow; broken: every answer is
// an error.

#define FUSE_USE_VERSION 31
#include <dirent.h>
#include <fcntl.h>
#include <fuse.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

namespace {

std::string server, mode_file;  // NOLINT: the library calls plain functions

std::string mode() {
    std::string word;
    std::ifstream(mode_file) >> word;
    return word;
}

/// Waits while the server is silent. Then 0, or the error that everything ends with.
int answer() {
    std::string now = mode();
    while (now == "silent") {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        now = mode();
    }
    return now == "broken" ? -EIO : 0;
}

int result(int returned) { return returned < 0 ? -errno : returned; }
std::string there(const char* path) { return server + path; }
int file_of(const fuse_file_info* info) { return static_cast<int>(info->fh); }

int get_attributes(const char* path, struct stat* out, fuse_file_info*) {
    if (const int error = answer()) return error;
    return result(lstat(there(path).c_str(), out));
}

int list(const char* path, void* out, fuse_fill_dir_t fill, off_t, fuse_file_info*, fuse_readdir_flags) {
    if (const int error = answer()) return error;
    DIR* folder = opendir(there(path).c_str());
    if (folder == nullptr) return -errno;
    while (const dirent* entry = readdir(folder)) fill(out, entry->d_name, nullptr, 0, fuse_fill_dir_flags{});
    closedir(folder);
    return 0;
}

int open_or_create(const char* path, int flags, mode_t rights, fuse_file_info* info) {
    if (const int error = answer()) return error;
    const int file = ::open(there(path).c_str(), flags, rights);
    if (file < 0) return -errno;
    info->fh = static_cast<std::uint64_t>(file);
    info->direct_io = 1;  // what another computer has written is seen at once
    return 0;
}
int open_file(const char* path, fuse_file_info* info) { return open_or_create(path, info->flags, 0, info); }
int create(const char* path, mode_t rights, fuse_file_info* info) {
    if (mode() == "full") return -ENOSPC;
    return open_or_create(path, info->flags | O_CREAT, rights, info);
}

int read_file(const char*, char* out, std::size_t size, off_t offset, fuse_file_info* info) {
    if (const int error = answer()) return error;
    return result(static_cast<int>(pread(file_of(info), out, size, offset)));
}

int write_file(const char*, const char* bytes, std::size_t size, off_t offset, fuse_file_info* info) {
    if (const int error = answer()) return error;
    struct stat now {};
    if (mode() == "full" && fstat(file_of(info), &now) == 0 && offset + static_cast<off_t>(size) > now.st_size) {
        return -ENOSPC;
    }
    return result(static_cast<int>(pwrite(file_of(info), bytes, size, offset)));
}

int sync_file(const char*, int, fuse_file_info* info) {
    if (const int error = answer()) return error;
    return result(fsync(file_of(info)));
}
int sync_folder(const char*, int, fuse_file_info*) { return answer(); }

int lock(const char*, fuse_file_info* info, int command, struct flock* range) {
    if (const int error = answer()) return error;
    struct flock whose = *range;
    whose.l_pid = 0;  // as a lock of the open file wants it
    const int open_file_command = command == F_GETLK ? F_OFD_GETLK : F_OFD_SETLK;
    const int returned = fcntl(file_of(info), open_file_command, &whose);
    if (command == F_GETLK) *range = whose;
    return result(returned);
}

int release(const char*, fuse_file_info* info) { return result(close(file_of(info))); }
int remove_file(const char* path) {
    if (const int error = answer()) return error;
    return result(unlink(there(path).c_str()));
}
int shorten(const char* path, off_t size, fuse_file_info*) {
    if (const int error = answer()) return error;
    return result(truncate(there(path).c_str(), size));
}
int may(const char* path, int how) {
    if (const int error = answer()) return error;
    return result(access(there(path).c_str(), how));
}
int move(const char* from, const char* to, unsigned) {
    if (const int error = answer()) return error;
    return result(rename(there(from).c_str(), there(to).c_str()));
}
int make_folder(const char* path, mode_t rights) {
    if (const int error = answer()) return error;
    return mode() == "full" ? -ENOSPC : result(mkdir(there(path).c_str(), rights));
}
int set_rights(const char* path, mode_t rights, fuse_file_info*) { return result(chmod(there(path).c_str(), rights)); }
int size_of(const char* path, struct statvfs* out) { return result(statvfs(there(path).c_str(), out)); }

}  // namespace

int main(int, char* argv[]) {
    server = std::filesystem::canonical(argv[1]).string();
    mode_file = std::filesystem::canonical(argv[2]).string();
    fuse_operations all{};
    all.getattr = get_attributes;
    all.readdir = list;
    all.open = open_file;
    all.create = create;
    all.read = read_file;
    all.write = write_file;
    all.fsync = sync_file;
    all.fsyncdir = sync_folder;
    all.lock = lock;
    all.release = release;
    all.unlink = remove_file;
    all.truncate = shorten;
    all.access = may;
    all.rename = move;
    all.mkdir = make_folder;
    all.chmod = set_rights;
    all.statfs = size_of;
    std::string program = argv[0];
    std::string point = argv[3];
    std::string foreground = "-f";
    std::string option = "-o";
    std::string uncached = "attr_timeout=0,entry_timeout=0,negative_timeout=0";
    std::array<char*, 5> arguments{program.data(), foreground.data(), option.data(), uncached.data(), point.data()};
    return fuse_main(static_cast<int>(arguments.size()), arguments.data(), &all, nullptr);
}
