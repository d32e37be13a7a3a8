#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <system_error>

#include "admin/commands.h"

namespace marrowfen {

namespace {

namespace fs = std::filesystem;

// Whatever is made in the folder belongs to the group, whoever makes it: that is what the sixth bit from the left says.
// There is no bit that lets only its maker remove a file, as the next account must be able to take away the journal
// that a crash has left.
constexpr mode_t kWrittenFolder = 02770;
constexpr mode_t kWrittenFile = 0660;
constexpr mode_t kReadFolder = 0755;
constexpr mode_t kReadFile = 0644;
constexpr mode_t kAnyMayStart = 0111;

[[noreturn]] void refuse(const fs::path& path) {
    throw fs::filesystem_error("can't be changed", path, std::error_code(errno, std::generic_category()));
}

void set_owner_and_mode(const fs::path& path, gid_t group, mode_t mode) {
    constexpr auto kTheSameUser = static_cast<uid_t>(-1);
    if (chown(path.c_str(), kTheSameUser, group) != 0 || chmod(path.c_str(), mode) != 0) refuse(path);
}

void open_to(gid_t group, const fs::path& folder) {
    set_owner_and_mode(folder, group, kWrittenFolder);
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        set_owner_and_mode(entry.path(), group, entry.is_directory() ? kWrittenFolder : kWrittenFile);
    }
}

/// Nobody but the owner of the files, who is whoever does this, can replace one of them.
void close_to_others(const fs::path& program) {
    const auto close = [](const fs::path& path, const fs::file_status& status) {
        constexpr gid_t kOwnGroup = static_cast<gid_t>(-1);
        if (lchown(path.c_str(), geteuid(), kOwnGroup) != 0) refuse(path);
        if (fs::is_symlink(status)) return;
        const bool starts = (static_cast<mode_t>(status.permissions()) & S_IXUSR) != 0;
        const mode_t mode = fs::is_directory(status) ? kReadFolder : starts ? kReadFile | kAnyMayStart : kReadFile;
        if (chmod(path.c_str(), mode) != 0) refuse(path);
    };
    close(program, fs::status(program));
    for (const auto& entry : fs::recursive_directory_iterator(program)) close(entry.path(), entry.symlink_status());
}

/// The store and its copies go to the folder, and a link stays in their place.
void move_store(const fs::path& link, const fs::path& folder) {
    const fs::path store = folder / "data.mdb";
    if (fs::exists(store)) throw CommandFailure(store.string() + " is there already");
    const auto moved = Copies(store).put_back(link, this_moment());
    if (const auto* failure = moved.failure())
        throw CommandFailure(link.string() + " can't be moved: " + failure->reason);
    const fs::path copies = Copies(link).folder();
    if (fs::exists(copies)) fs::copy(copies, folder / "Backups", fs::copy_options::skip_existing);
    const fs::path next = fs::path(link) += ".link";
    fs::remove(next);
    fs::create_symlink(store, next);
    fs::rename(next, link);
    fs::remove_all(copies);
}

void share(const fs::path& link, const fs::path& folder, const std::string& group_name) {
    const group* accounts = getgrnam(group_name.c_str());
    if (accounts == nullptr) throw CommandFailure("There is no group " + group_name);
    const gid_t id = accounts->gr_gid;
    const fs::path program = link.parent_path();
    fs::create_directories(folder);
    const fs::path real = fs::canonical(folder);
    if (!fs::is_symlink(link)) {
        move_store(link, real);
    } else if (fs::canonical(link).parent_path() != real) {
        throw CommandFailure(link.string() + " leads to another folder already");
    }
    open_to(id, real);
    close_to_others(fs::canonical(program));
    std::cout << "Pupils and results lie in " << real.string() << " now, where the group " << group_name
              << " may write.\nThe rest lies in " << program.string() << ", where nobody else may.\n";
}

}  // namespace

void add_share_command(CLI::App& program, Room*& room) {
    auto* sharing =
        program.add_subcommand("share", "Lets several accounts of this computer play, with one store for all");
    const auto folder = std::make_shared<fs::path>();
    const auto group = std::make_shared<std::string>();
    sharing->add_option("folder", *folder, "Where pupils, results and copies are to lie; it is made if need be")
        ->required();
    sharing->add_option("--group", *group, "The group of the accounts that play")->required();
    sharing->footer(
        "To be done as the administrator (root). Afterwards the accounts of the group can write pupils and results,\n"
        "and none of them can replace the program that the others start. Do it again after an upgrade.");
    sharing->callback([&room, folder, group] { share(room->file(), *folder, *group); });
}

}  // namespace marrowfen
