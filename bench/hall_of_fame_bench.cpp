// How much longer does a hall of fame take when there are very many results? Prints the ratio of many to few within
// one run, so that the machine's own speed drops out.

#include <sqlite3.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/sqlite/sqlite_store.h"
#include "platform/system/disk_files.h"
#include "store/store_builder.h"

namespace {

using namespace marrowfen;

constexpr int kFew = 20;
constexpr int kMany = 100'000;
constexpr int kRuns = 201;

void fill(const std::filesystem::path& store, int results) {
    sqlite3* db = nullptr;
    sqlite3_open(store.c_str(), &db);
    const std::string sql =
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " + std::to_string(results) +
        ") INSERT INTO Hall_of_Fame (Pupil_id, TimeTaken, TheDate, TimeLimit, Points, GameID, timeplayed) "
        "SELECT i % 30 + 1, '0:30', '2026-03-09', 60, i * 7919 % 100, 7, '10:00:00' FROM n";
    if (sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) std::puts(sqlite3_errmsg(db));
    sqlite3_close(db);
}

void show_hall_of_fame(Store& store) {
    const auto rows = store.open("besttimes");
    auto found = rows->find_first("GameID=7 And timelimit =60");
    for (int row = 0; row < 10 && found.value(); ++row) found = rows->find_next("GameId=7 And timelimit =60");
}

// The median of many runs, in microseconds.
double measure(const std::filesystem::path& folder, int results) {
    std::filesystem::create_directories(folder);
    const auto faults = build_store(MARROWFEN_CONTENT_FOLDER, folder / "data.mdb");
    for (const std::string& fault : faults) std::puts(fault.c_str());
    fill(folder / "data.mdb", results);
    const DiskFiles files(folder);
    SqliteStoreEngine engine(files);
    const auto opened = engine.open(files.program_folder() + "\\data.mdb");
    std::vector<double> times;
    for (int run = 0; run < kRuns; ++run) {
        const auto begin = std::chrono::steady_clock::now();
        show_hall_of_fame(*opened.value());
        times.push_back(std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - begin).count());
    }
    std::ranges::nth_element(times, times.begin() + kRuns / 2);
    return times[kRuns / 2];
}

}  // namespace

int main() {
    try {
        const auto folder = std::filesystem::temp_directory_path() / "marrowfen-bench";
        const double few = measure(folder / "few", kFew);
        const double many = measure(folder / "many", kMany);
        std::filesystem::remove_all(folder);
        std::printf("hall of fame: %.0f us with %d results, %.0f us with %d; ratio %.2f\n", few, kFew, many, kMany,
                    many / few);
        return EXIT_SUCCESS;
    } catch (const std::exception& failure) {
        (void)std::fprintf(stderr, "%s\n", failure.what());
        return EXIT_FAILURE;
    }
}
