#include "school/export.h"

#include <fstream>
#include <system_error>

#include "school/csv.h"
#include "school/standing.h"

namespace marrowfen {

FileFailure write_whole_file(const std::filesystem::path& file, const std::function<bool(std::ostream&)>& write) {
    namespace fs = std::filesystem;
    const std::string name = file.filename().string();
    std::error_code error;
    if (fs::is_directory(file, error)) return "A folder has the name " + name;
    const fs::path unfinished = fs::path(file) += ".part";
    const auto give_up = [&unfinished] {
        std::error_code ignored;
        fs::remove(unfinished, ignored);
    };
    std::ofstream output(unfinished, std::ios::binary | std::ios::trunc);
    if (!output) return name + " can't be written: nothing can be made in that folder";
    const bool whole = write(output);
    output.close();
    if (!whole && output) {
        give_up();
        return std::string("It was stopped, and nothing was written");
    }
    if (!output) {
        give_up();
        return name + " can't be written: the disk is full or does not answer";
    }
    fs::rename(unfinished, file, error);
    if (!error) return std::nullopt;
    give_up();
    return name + " can't be put in its place (" + error.message() + ")";
}

bool write_pupils(const Book& book, std::ostream& output) {
    CsvWriter csv(output);
    csv.write({"Name", "Games played", "Last played", "Best points", "Best game", "What next"});
    const auto all = standings(book);
    for (std::size_t i = 0; i < all.size(); ++i) {
        const Standing& standing = all[i];
        csv.write({harmless(book.pupils()[i].name), std::to_string(standing.times), date_text(standing.last_day),
                   standing.best ? std::to_string(standing.best->points) : "",
                   standing.best ? harmless(book.game_name(standing.best->game)) : "", advice(book, standing)});
    }
    return output.good();
}

FileFailure export_pupils(const Book& book, const std::filesystem::path& file) {
    return write_whole_file(file, [&](std::ostream& output) { return write_pupils(book, output); });
}

bool write_results(const Book& book, const ResultPlaces& places, std::ostream& output, const Progress& progress) {
    constexpr std::size_t kBetweenTwoLooks = 8192;
    CsvWriter csv(output);
    csv.write({"Pupil", "Game", "Team", "Points", "Seconds (typing test)", "Time taken", "Date", "Time of day"});
    for (std::size_t i = 0; i < places.size(); ++i) {
        const Played& played = book.results()[places[i]];
        const std::string points = std::to_string(played.points);
        const bool typing = played.time_limit == 0;
        csv.write({harmless(book.name_of(played.pupil)), harmless(book.game_name(played.game)), team_of(played),
                   typing ? "" : points, typing ? points : "", minutes_text(played.taken), date_text(played.day),
                   clock_text(played.clock)});
        if (i % kBetweenTwoLooks != 0) continue;
        if (!output) return false;
        if (progress && !progress(static_cast<std::int64_t>(i), std::ssize(places))) return false;
    }
    return output.good();
}

FileFailure export_results(const Book& book, const ResultPlaces& places, const std::filesystem::path& file,
                           const Progress& progress) {
    return write_whole_file(file, [&](std::ostream& output) { return write_results(book, places, output, progress); });
}

}  // namespace marrowfen
