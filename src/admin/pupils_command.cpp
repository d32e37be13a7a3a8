#include <CLI/CLI.hpp>
#include <fstream>
#include <iostream>
#include <iterator>
#include <nlohmann/json.hpp>

#include "admin/commands.h"
#include "platform/text/folding.h"
#include "school/class_list.h"
#include "school/export.h"
#include "school/standing.h"

namespace marrowfen {

namespace {

std::string bytes_of(const std::filesystem::path& file) {
    if (is_standard(file)) return {std::istreambuf_iterator<char>(std::cin), {}};
    std::ifstream input(file, std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(input), {}};
    if (!input || std::filesystem::is_directory(file))
        throw CommandFailure("The file " + file.string() + " can't be read");
    return bytes;
}

void list(Book& book, bool as_json) {
    const auto all = standings(book);
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (std::size_t i = 0; i < all.size(); ++i) {
        const Standing& standing = all[i];
        const KeptPupil& pupil = book.pupils()[i];
        const std::string best =
            standing.best ? points_text(*standing.best) + " in " + book.game_name(standing.best->game) : "";
        if (!as_json) {
            std::cout << pupil.name << '\t' << standing.times << '\t' << date_text(standing.last_day) << '\t' << best
                      << '\t' << advice(book, standing) << '\n';
            continue;
        }
        list.push_back({{"number", pupil.number},
                        {"name", pupil.name},
                        {"games", standing.times},
                        {"last_played", date_text(standing.last_day)},
                        {"best", best},
                        {"advice", advice(book, standing)}});
    }
    // Names that are not UTF-8, which only another program can have written, are shown as far as they can be.
    if (as_json) std::cout << list.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
}

std::size_t column_called(const ClassList& list, const std::string& name) {
    if (name.empty()) return list.likely_column();
    const auto& columns = list.columns();
    const auto found = std::ranges::find(columns, folded(name), folded);
    if (found == columns.end()) throw CommandFailure("The list has no column '" + name + "'");
    return static_cast<std::size_t>(found - columns.begin());
}

struct Import {
    std::filesystem::path file;
    std::string column;
    bool skip_faults = false;
    bool dry_run = false;
};

void import(Room& room, const Import& wanted) {
    const ClassList list(bytes_of(wanted.file));
    const auto lines = list.lines(column_called(list, wanted.column), room.book().pupils());
    const auto names = good_names(lines);
    for (const auto& line : lines) {
        if (line.fault.empty()) continue;
        std::cerr << "Line " << line.number << ": " << line.name << (line.name.empty() ? "" : ": ") << line.fault
                  << ".\n";
    }
    const auto faults = lines.size() - names.size();
    if (wanted.dry_run) {
        for (const std::string& name : names) std::cout << name << '\n';
        return;
    }
    if (faults > 0 && !wanted.skip_faults) {
        throw CommandFailure("Nobody was added, since " + counted(static_cast<std::int64_t>(faults), "line") +
                             " can't be taken; --skip-faults adds the others");
    }
    fail_if(room.desk().add(names, shown_progress("Adding pupils")));
    std::cerr << counted(std::ssize(names), "pupil") << " added.\n";
}

void remove(Room& room, const std::vector<std::string>& names, Results results, bool yes) {
    std::vector<std::int64_t> pupils;
    for (const std::string& name : names) {
        const auto& all = room.book().pupils();
        const auto found =
            std::ranges::find(all, folded(name), [](const KeptPupil& pupil) { return folded(pupil.name); });
        if (found == all.end()) throw CommandFailure("Nobody was removed, since there is no pupil " + name);
        pupils.push_back(found->number);
    }
    const std::string who = named_or_counted(room.book(), pupils);
    make_sure(yes, "Remove " + who + (results == Results::GoToo ? " with all results?" : "? The results stay."));
    fail_if(room.desk().remove(pupils, results, shown_progress("Removing")));
    std::cerr << who << " removed.\n";
}

}  // namespace

void add_pupils_command(CLI::App& program, Room*& room) {
    auto* pupils = program.add_subcommand("pupils", "Who may play");
    pupils->require_subcommand(1);

    auto* listing =
        pupils->add_subcommand("list", "Name, games played, last played, best result and what next, by tabs");
    auto as_json = std::make_shared<bool>(false);
    listing->add_flag("--json", *as_json, "As JSON");
    listing->callback([&room, as_json] { list(room->book(), *as_json); });

    auto* importing = pupils->add_subcommand("import", "Adds a class list: all of it, or nobody");
    auto wanted = std::make_shared<Import>();
    importing->add_option("file", wanted->file, "One name a line, or a CSV table; - for the standard input")
        ->required();
    importing->add_option("--column", wanted->column, "The title of the column with the names");
    importing->add_flag("--skip-faults", wanted->skip_faults, "Adds the others where a line can't be taken");
    importing->add_flag("--dry-run", wanted->dry_run, "Lists who would be added, and adds nobody");
    importing->callback([&room, wanted] { import(*room, *wanted); });

    auto* exporting = pupils->add_subcommand("export", "Writes all pupils as CSV");
    auto file = std::make_shared<std::filesystem::path>();
    exporting->add_option("file", *file, "The file to write; - for the standard output")->required();
    exporting->callback([&room, file] {
        const Book& book = room->book();
        write_out(*file, [&](std::ostream& output) { return write_pupils(book, output); });
    });

    auto* removing = pupils->add_subcommand("remove", "Removes pupils: all who are named, or nobody");
    auto names = std::make_shared<std::vector<std::string>>();
    auto yes = std::make_shared<bool>(false);
    auto with_results = std::make_shared<bool>(false);
    removing->add_option("names", *names, "Their names")->required();
    removing->add_flag("--with-results", *with_results, "Removes their results, too");
    removing->add_flag("--yes", *yes, "Asks nothing");
    removing->callback([&room, names, yes, with_results] {
        remove(*room, *names, *with_results ? Results::GoToo : Results::Stay, *yes);
    });
}

}  // namespace marrowfen
