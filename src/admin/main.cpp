#include <cstdio>
#include <optional>
#include <system_error>

#include "admin/commands.h"
#include "admin/words.h"
#include "copies/copies.h"
#include "platform/system/disk_files.h"

namespace marrowfen {

void Admin::fail(const std::string& sentence) {
    (void)std::fprintf(stderr, "marrowfen-admin: %s\n", sentence.c_str());
    status = EXIT_FAILURE;
}

std::string in_words(const Holdings& holdings) {
    const auto counted = [](std::int64_t number, const std::string& what) {
        return std::to_string(number) + " " + what + (number == 1 ? "" : "s");
    };
    return counted(holdings.pupils, "pupil") + " and " + counted(holdings.results, "result");
}

namespace {

constexpr int kCantUnderstand = 2;

std::filesystem::path folder_of_this_program() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
}

std::filesystem::path store_in(const std::filesystem::path& folder) {
    const DiskFiles files(folder);
    const auto found = files.find(files.program_folder() + "\\data.mdb");
    return found ? *found : folder / "data.mdb";
}

int obey(int argc, char** argv) {
    Admin admin;
    std::filesystem::path folder = folder_of_this_program();
    std::optional<Room> opened;
    Room* room = nullptr;
    CLI::App line(
        "Looks after the pupils and results of Marrowfen, while others play or not.\n"
        "Ends with status 0 when all was done, 1 when not and 2 when the line can't be understood; the\n"
        "reason is then said on the standard error output. What fails has changed nothing.",
        "marrowfen-admin");
    line.set_version_flag("--version", "marrowfen-admin " MARROWFEN_VERSION);
    line.set_help_all_flag("--help-all", "Show the help of all words");
    line.add_option("--folder", folder, "The program folder with data.mdb; without it the one of this program")
        ->take_last();
    line.add_option("--store", admin.store, "For copies, restore, salvage and share: a file other than data.mdb there")
        ->type_name("FILE");
    line.require_subcommand(1);
    line.parse_complete_callback([&] {
        if (admin.store.empty()) admin.store = store_in(folder);
        room = &opened.emplace(folder);
    });
    add_copies(line, admin);
    add_restore(line, admin);
    add_salvage(line, admin);
    add_share(line, admin);
    add_pupils_command(line, room);
    add_results_command(line, room);
    add_words_command(line, room);
    try {
        line.parse(argc, argv);
        return admin.status;
    } catch (const CLI::ParseError& error) {
        return line.exit(error) == 0 ? EXIT_SUCCESS : kCantUnderstand;
    }
}

int run(int argc, char** argv) {
    try {
        return obey(argc, argv);
    } catch (const std::exception& failure) {
        (void)std::fprintf(stderr, "marrowfen-admin: %s.\n", failure.what());
        return EXIT_FAILURE;
    }
}

}  // namespace

}  // namespace marrowfen

int main(int argc, char** argv) { return marrowfen::run(argc, argv); }
