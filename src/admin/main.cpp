#include <CLI/CLI.hpp>
#include <cstdio>
#include <cstdlib>
#include <optional>

#include "admin/commands.h"
#include "platform/system/own_folder.h"

namespace marrowfen {

namespace {

constexpr int kCantUnderstand = 2;

int obey(int argc, char** argv) {
    std::filesystem::path store = own_folder();
    std::optional<Room> opened;
    Room* room = nullptr;
    CLI::App line(
        "Looks after the pupils and results of Marrowfen, while others play or not.\n"
        "Ends with status 0 when all was done, 1 when not and 2 when the line can't be understood; the\n"
        "reason is then said on the standard error output. What fails has changed nothing.",
        "marrowfen-admin");
    line.set_version_flag("--version", "marrowfen-admin " MARROWFEN_VERSION);
    line.set_help_all_flag("--help-all", "Show the help of all words");
    line.add_option("--store", store, "The file with pupils and results, or the program folder that leads to it")
        ->default_str("that of this program")
        ->type_name("PATH")
        ->take_last();
    line.require_subcommand(1);
    line.parse_complete_callback([&] { room = &opened.emplace(store); });
    add_pupils_command(line, room);
    add_results_command(line, room);
    add_words_command(line, room);
    add_copies_commands(line, room);
    add_share_command(line, room);
    try {
        line.parse(argc, argv);
        return EXIT_SUCCESS;
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
