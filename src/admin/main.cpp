#include <array>
#include <cstdio>
#include <ctime>
#include <system_error>

#include "admin/words.h"
#include "platform/system/disk_files.h"
#include "school/copies.h"

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

std::string this_moment() {
    constexpr std::size_t kEnough = 32;
    std::array<char, kEnough> text{};
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    localtime_r(&now, &parts);
    return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d %H.%M.%S", &parts)};
}

namespace {

std::filesystem::path store_of_this_program() {
    std::error_code error;
    const DiskFiles files(std::filesystem::read_symlink("/proc/self/exe", error).parent_path());
    const std::string path = files.program_folder() + "\\data.mdb";
    const auto found = files.find(path);
    return found ? *found : *files.find(files.program_folder()) / "data.mdb";
}

int run(int argc, char** argv) {
    Admin admin;
    CLI::App line("Looks after the pupils and results of Marrowfen.", "marrowfen-admin");
    line.set_version_flag("--version", "marrowfen-admin " MARROWFEN_VERSION);
    line.set_help_all_flag("--help-all", "Print this help and that of every word");
    line.add_option("--store", admin.store, "The file with pupils and results (default: data.mdb beside this program)")
        ->type_name("FILE");
    line.require_subcommand(1);
    line.parse_complete_callback([&admin] {
        if (admin.store.empty()) admin.store = store_of_this_program();
    });
    add_copies(line, admin);
    add_restore(line, admin);
    add_salvage(line, admin);
    add_share(line, admin);
    CLI11_PARSE(line, argc, argv);
    return admin.status;
}

}  // namespace

}  // namespace marrowfen

int main(int argc, char** argv) { return marrowfen::run(argc, argv); }
