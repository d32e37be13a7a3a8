#include <CLI/CLI.hpp>
#include <iostream>
#include <nlohmann/json.hpp>

#include "admin/commands.h"
#include "copies/comparison.h"
#include "copies/salvage.h"

namespace marrowfen {

namespace {

namespace fs = std::filesystem;

std::string in_words(const Holdings& holdings) {
    return counted(holdings.pupils, "pupil") + " and " + counted(holdings.results, "result");
}

std::string in_words(Copy::Kind kind) {
    switch (kind) {
        case Copy::Kind::OfTheDay:
            return "of the day";
        case Copy::Kind::ByHand:
            return "by hand";
        case Copy::Kind::SetAside:
            return "set aside";
        case Copy::Kind::Salvaged:
            return "salvaged";
    }
    return {};
}

void list(const Copies& copies, bool as_json) {
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (const Copy& copy : copies.list()) {
        const auto holdings = good_holdings_of(copy.file);
        const auto* failure = holdings.failure();
        if (!as_json) {
            std::cout << copy.name() << '\t' << in_words(copy.kind) << '\t'
                      << (failure ? "not good: " + failure->reason : in_words(holdings.value())) << '\n';
            continue;
        }
        nlohmann::ordered_json row{{"name", copy.name()},
                                   {"kind", in_words(copy.kind)},
                                   {"file", copy.file.string()},
                                   {"good", failure == nullptr}};
        if (failure) {
            row["reason"] = failure->reason;
        } else {
            row["pupils"] = holdings.value().pupils;
            row["results"] = holdings.value().results;
        }
        list.push_back(std::move(row));
    }
    if (as_json) std::cout << list.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
    if (!as_json && copies.list().empty()) std::cerr << "There are no copies in " << copies.folder().string() << ".\n";
}

void back_up(const Copies& copies, const fs::path& file) {
    if (file.empty()) {
        const auto made = copies.make(this_moment(), {});
        if (const auto* failure = made.failure()) throw CommandFailure("No copy was made: " + failure->reason);
        std::cout << made.value().file.string() << '\n';
    } else if (const auto failure = copies.save_as(file, {})) {
        throw CommandFailure("No copy was made: " + failure->reason);
    }
}

void check(const fs::path& store) {
    const auto holdings = good_holdings_of(store);
    if (const auto* failure = holdings.failure()) throw CommandFailure(store.string() + ": " + failure->reason);
    std::cout << store.string() << " is whole and holds " << in_words(holdings.value()) << ".\n";
}

fs::path chosen(const Copies& copies, const std::string& wanted) {
    if (wanted.empty()) {
        const auto newest = copies.newest_good();
        if (!newest) throw CommandFailure("There is no good copy in " + copies.folder().string());
        return newest->file;
    }
    for (const Copy& copy : copies.list()) {
        if (copy.name() == wanted) return copy.file;
    }
    std::error_code error;
    if (fs::is_regular_file(wanted, error)) return wanted;
    throw CommandFailure("There is neither a copy " + wanted + " nor a file of that name");
}

void restore(const Copies& copies, const std::string& wanted, bool dry_run) {
    const fs::path copy = chosen(copies, wanted);
    const auto differences = compare(copies.store(), copy);
    if (dry_run) {
        if (const auto* failure = differences.failure()) throw CommandFailure("Can't compare: " + failure->reason);
        if (differences.value().nothing()) std::cout << "Nothing would change.\n";
        for (const std::string& line : differences.value().lines()) std::cout << line << ".\n";
        return;
    }
    const auto now = holdings_of(copies.store());
    const auto before = copies.put_back(copy, this_moment());
    if (const auto* failure = before.failure()) {
        throw CommandFailure("Nothing was changed: " + copy.string() + " can't be put back: " + failure->reason);
    }
    const auto then = holdings_of(copies.store());
    std::cout << copy.string() << " is back in place";
    if (!then.failure()) std::cout << ", with " << in_words(then.value());
    if (!now.failure()) std::cout << "; there were " << in_words(now.value());
    std::cout << ".\n";
    if (!before.value().empty()) std::cout << "What was there before is kept in " << before.value().string() << ".\n";
}

void salvage_into(const Copies& copies, const fs::path& file) {
    const fs::path into = file.empty() ? copies.folder() / ("salvaged " + this_moment() + ".mdb") : file;
    const auto copy = copies.newest_good();
    const auto told = salvage(copies.store(), into, copy ? std::optional(copy->file) : std::nullopt);
    if (const auto* failure = told.failure()) throw CommandFailure("Nothing could be saved: " + failure->reason);
    const Salvaged& result = told.value();
    std::cout << "Saved " << in_words(result.saved) << " in " << into.string() << ".\n";
    if (copy) {
        const auto then = holdings_of(copy->file);
        if (!then.failure()) std::cout << "The newest good copy holds " << in_words(then.value()) << ".\n";
    }
    if (result.without_a_name > 0) {
        std::cout << "Of " << counted(result.without_a_name, "pupil")
                  << " there are results, but no name: they were removed, or their names are lost.\n";
    }
    if (result.in_two_forms > 0) {
        std::cout << result.in_two_forms << " of them stood there in two forms; one of the two was taken.\n";
    }
    if (!result.walked) {
        std::cout << "The damaged file had to be searched piece by piece: pupils who were removed may be back.\n";
    }
    if (!result.has_games) {
        std::cout << "It holds no games: put it in place, then build Marrowfen again (./run) or configure its package "
                     "anew.\n";
    }
    std::cout << "To put it in place: marrowfen-admin restore '" << into.string() << "'\n";
}

}  // namespace

void add_copies_commands(CLI::App& program, Room*& room) {
    const auto file = std::make_shared<fs::path>();
    const auto wanted = std::make_shared<std::string>();
    const auto flag = std::make_shared<bool>(false);

    auto* listing = program.add_subcommand("copies", "Lists the copies, the newest first, and what each holds");
    listing->add_flag("--json", *flag, "As JSON");
    listing->callback([&room, flag] { list(room->copies(), *flag); });

    auto* backing_up = program.add_subcommand("backup", "Makes a copy now, while others play or not");
    backing_up->add_option("file", *file, "Where to; without it among the other copies, where it stays");
    backing_up->callback([&room, file] { back_up(room->copies(), *file); });

    auto* checking = program.add_subcommand("check", "Says whether the store is whole, and what it holds");
    checking->callback([&room] { check(room->copies().store()); });

    auto* restoring =
        program.add_subcommand("restore", "Puts a copy back in place of the pupils and results that are there now");
    restoring->add_option("copy", *wanted, "Its name, as 2026-03-09, or a file; without it the newest good copy");
    restoring->add_flag("--dry-run", *flag, "Says what would change, and changes nothing");
    restoring->footer(
        "Close Marrowfen on all computers first: where it is open it goes on showing what was there, and can't\n"
        "write. What was there before is kept among the copies, and nothing is changed if the copy is not good.");
    restoring->callback([&room, wanted, flag] { restore(room->copies(), *wanted, *flag); });

    auto* salvaging = program.add_subcommand("salvage", "Saves what can be read from a damaged store into a new file");
    salvaging->add_option("file", *file, "The new file, which must not be there yet; without it one among the copies");
    salvaging->footer("The damaged file stays as it is.");
    salvaging->callback([&room, file] { salvage_into(room->copies(), *file); });
}

}  // namespace marrowfen
