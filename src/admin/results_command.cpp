#include <CLI/CLI.hpp>
#include <iostream>
#include <nlohmann/json.hpp>

#include "admin/commands.h"
#include "core/teams.h"
#include "platform/letter_case.h"
#include "platform/text/folding.h"
#include "school/export.h"
#include "school/result_list.h"

namespace marrowfen {

namespace {

/// The options that say which results are meant.
struct Wanted {
    std::vector<std::string> pupils;
    std::int64_t game = 0;
    std::string team;
    std::string from;
    std::string to;
    bool all = false;
    bool yes = false;
    bool as_json = false;
    std::filesystem::path file;
};

std::string team_fault(const std::string& name) {
    const bool known = std::ranges::any_of(kTeams, [&](const Team& team) { return same_name(team.name, name); });
    return known ? "" : "there is no team " + name;
}

std::string date_fault(const std::string& text) {
    // The day must exist: 2026-02-30 would quietly mean another span than the one who wrote it thinks.
    int year = 0;
    unsigned month = 0;
    unsigned day = 0;
    int read = 0;
    if (std::sscanf(text.c_str(), "%4d-%2u-%2u%n", &year, &month, &day, &read) == 3 &&
        static_cast<std::size_t>(read) == text.size()) {
        const std::chrono::year_month_day date{std::chrono::year{year}, std::chrono::month{month},
                                               std::chrono::day{day}};
        if (date.ok() && as_text(date) == text) return {};
    }
    return text + " is no day; write one as 2026-08-31";
}

void add_filter(CLI::App& command, Wanted& wanted) {
    command.add_option("--pupil", wanted.pupils, "Only this pupil's; may be said several times")
        ->expected(1)
        ->take_all();
    command.add_option("--game", wanted.game, "Only those of the game with this number in the list of games");
    command.add_option("--team", wanted.team, "Only those of this team: Red, Yellow, Green or Blue")->check(team_fault);
    command.add_option("--from", wanted.from, "Only from this day on, written as 2025-09-01")->check(date_fault);
    command.add_option("--to", wanted.to, "Only up to this day, written as 2026-08-31")->check(date_fault);
}

ResultFilter filter_for(const Book& book, const Wanted& wanted) {
    ResultFilter filter;
    for (const std::string& name : wanted.pupils) {
        const auto& all = book.pupils();
        const auto found =
            std::ranges::find(all, folded(name), [](const KeptPupil& pupil) { return folded(pupil.name); });
        if (found == all.end()) throw CommandFailure("There is no pupil " + name);
        filter.pupils.push_back(found->number);
    }
    if (wanted.game != 0) {
        const auto found = std::ranges::find(book.games(), wanted.game, &GameEntry::number);
        if (found == book.games().end())
            throw CommandFailure("There is no game with the number " + std::to_string(wanted.game));
        filter.game = found->id;
    }
    for (const Team& team : kTeams) {
        if (same_name(team.name, wanted.team)) filter.time_limit = team.time_limit;
    }
    filter.from = wanted.from;
    filter.to = wanted.to;
    return filter;
}

bool write_json(const Book& book, const ResultPlaces& places, std::ostream& output, const Progress& progress) {
    constexpr std::size_t kBetweenTwoLooks = 8192;
    output << '[';
    for (std::size_t i = 0; i < places.size(); ++i) {
        const Played& played = book.results()[places[i]];
        const nlohmann::ordered_json row{{"pupil", book.name_of(played.pupil)},
                                         {"game", book.game_name(played.game)},
                                         {"team", team_of(played)},
                                         {"points", played.points},
                                         {"unit", played.time_limit == 0 ? "seconds" : "percent of the time left"},
                                         {"time_taken", minutes_text(played.taken)},
                                         {"date", date_text(played.day)},
                                         {"time_of_day", clock_text(played.clock)}};
        output << (i == 0 ? "\n" : ",\n") << row.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
        if (i % kBetweenTwoLooks == 0 && (!output || !progress(static_cast<std::int64_t>(i), std::ssize(places))))
            return false;
    }
    output << "\n]\n";
    return output.good();
}

void export_wanted(const Book& book, const Wanted& wanted) {
    const auto places = results_that_fit(book, filter_for(book, wanted));
    const auto progress = shown_progress("Writing results");
    write_out(wanted.file, [&](std::ostream& output) {
        return wanted.as_json ? write_json(book, places, output, progress)
                              : write_results(book, places, output, progress);
    });
}

void clear(Room& room, const Wanted& wanted) {
    const auto filter = filter_for(room.book(), wanted);
    if (filter == ResultFilter{} && !wanted.all) {
        throw CommandFailure("Nothing was changed: say which results, or --all");
    }
    const std::string what = counted(std::ssize(results_that_fit(room.book(), filter)), "result");
    make_sure(wanted.yes, "Clear " + what + "?");
    fail_if(room.desk().clear(filter, shown_progress("Clearing results")));
    std::cerr << what << " cleared.\n";
}

}  // namespace

void add_results_command(CLI::App& program, Room*& room) {
    auto* results = program.add_subcommand("results", "What was played");
    results->require_subcommand(1);
    auto wanted = std::make_shared<Wanted>();

    auto* exporting = results->add_subcommand("export", "Writes results as CSV");
    exporting->add_option("file", wanted->file, "The file to write; - for the standard output")->required();
    exporting->add_flag("--json", wanted->as_json, "As JSON instead");
    add_filter(*exporting, *wanted);
    exporting->callback([&room, wanted] { export_wanted(room->book(), *wanted); });

    auto* clearing = results->add_subcommand("clear", "Removes results for good: those of last year, say");
    clearing->add_flag("--all", wanted->all, "All of them");
    clearing->add_flag("--yes", wanted->yes, "Asks nothing");
    add_filter(*clearing, *wanted);
    clearing->callback([&room, wanted] { clear(*room, *wanted); });
}

}  // namespace marrowfen
