#include <CLI/CLI.hpp>
#include <iostream>

#include "admin/commands.h"
#include "school/word_sets.h"

namespace marrowfen {

namespace {

struct Wanted {
    std::string set;
    std::filesystem::path file;
    bool yes = false;
};

std::vector<std::string> set_words() {
    std::vector<std::string> words;
    for (const SetKind& kind : set_kinds()) words.push_back(kind.word);
    return words;
}

const SetKind& kind_of(const Wanted& wanted) { return *std::ranges::find(set_kinds(), wanted.set, &SetKind::word); }

/// The set of a file without a fault; otherwise fails with all of them.
SetRows whole_set(const Wanted& wanted) {
    const SetKind& kind = kind_of(wanted);
    Faults faults;
    SetRows rows = read_set(kind, wanted.file, faults);
    auto lines = faults.lines();
    if (lines.empty()) {
        for (const Faults::Place& fault : faults_in(kind, rows)) {
            lines.push_back(fault.line > 0 ? "row " + std::to_string(fault.line) + ": " + fault.reason : fault.reason);
        }
    }
    if (lines.empty()) return rows;
    for (const std::string& line : lines) std::cerr << line << '\n';
    throw CommandFailure(wanted.file.string() + " has " + counted(std::ssize(lines), "fault"));
}

}  // namespace

void add_words_command(CLI::App& program, Room*& room) {
    auto* words = program.add_subcommand("words", "The words, sentences and games that pupils see");
    words->require_subcommand(1);
    auto wanted = std::make_shared<Wanted>();
    const auto add = [&](const std::string& name, const std::string& what) {
        auto* command = words->add_subcommand(name, what);
        command->add_option("set", wanted->set, "Which one")->required()->check(CLI::IsMember(set_words()));
        return command;
    };

    auto* checking = add("check", "Says whether a file could be imported");
    checking->add_option("file", wanted->file, "The file")->required();
    checking->callback([wanted] { std::cerr << counted(std::ssize(whole_set(*wanted)), "line") << ", no faults.\n"; });

    auto* importing = add("import", "Puts a file in the place of the set, if it has no faults");
    importing->add_option("file", wanted->file, "The file")->required();
    importing->callback([&room, wanted] {
        const SetRows rows = whole_set(*wanted);
        fail_if(room->words().keep(kind_of(*wanted), rows));
        std::cerr << counted(std::ssize(rows), "line") << " kept.\n";
    });

    auto* exporting = add("export", "Writes the set to a file, tab-separated");
    exporting->add_option("file", wanted->file, "The file")->required();
    exporting->callback([&room, wanted] {
        const auto set = room->words().read(kind_of(*wanted));
        if (const auto* failure = set.failure()) throw CommandFailure("The set can't be read: " + failure->reason);
        if (const auto failure = write_set(kind_of(*wanted), set.value().rows, wanted->file)) {
            throw CommandFailure(*failure);
        }
    });

    auto* going_back = add("reset", "Goes back to what came with Marrowfen");
    going_back->add_flag("--yes", wanted->yes, "Asks nothing");
    going_back->callback([&room, wanted] {
        make_sure(wanted->yes, "Go back to what came with Marrowfen?");
        fail_if(room->words().go_back(kind_of(*wanted)));
    });
}

}  // namespace marrowfen
