// For those who look after many rooms: what a teacher does in a window, by script.

#include <CLI/CLI.hpp>
#include <cstdlib>
#include <iostream>
#include <optional>

#include "admin/commands.h"

namespace {

constexpr int kCantUnderstand = 2;

std::filesystem::path folder_of_this_program() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
}

}  // namespace

int main(int argc, char** argv) {
    using namespace marrowfen;
    CLI::App program(
        "Looks after the pupils and results of Marrowfen, while others play or not.\n"
        "Ends with status 0 when all was done, 1 when not and 2 when the line can't be understood; the\n"
        "reason is then said on the standard error output. What fails has changed nothing.",
        "marrowfen-admin");
    program.set_help_all_flag("--help-all", "Show the help of all commands");
    program.set_version_flag("--version", "marrowfen-admin " MARROWFEN_VERSION);
    program.require_subcommand(1);
    std::filesystem::path folder = folder_of_this_program();
    program.add_option("--folder", folder, "The program folder with data.mdb; without it the one of this program")
        ->take_last();
    std::optional<Room> opened;
    Room* room = nullptr;
    program.parse_complete_callback([&] { room = &opened.emplace(folder); });
    add_pupils_command(program, room);
    add_results_command(program, room);
    add_words_command(program, room);
    try {
        program.parse(argc, argv);
        return EXIT_SUCCESS;
    } catch (const CLI::ParseError& error) {
        return program.exit(error) == 0 ? EXIT_SUCCESS : kCantUnderstand;
    } catch (const std::exception& failure) {
        std::cerr << "marrowfen-admin: " << failure.what() << ".\n";
        return EXIT_FAILURE;
    }
}
