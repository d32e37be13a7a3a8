// One computer at school that saves results as fast as it can, and notes down each that it was told is kept.
//
// Usage: saver PROGRAM_FOLDER NAME SECONDS NOTES. Each result bears a time of its own, "NAME-7". What is refused is
// tried again, as a pupil does.

#include <chrono>
#include <fstream>
#include <iostream>
#include <map>
#include <string>
#include <thread>

#include "platform/sqlite/sqlite_store.h"
#include "platform/system/disk_files.h"

namespace {

using namespace marrowfen;
using Clock = std::chrono::steady_clock;

std::optional<StoreFailure> save(SqliteStoreEngine& engine, const Files& files, const std::string& time) {
    auto store = engine.open(files.program_folder() + "\\data.mdb");
    if (const StoreFailure* failure = store.failure()) return *failure;
    const auto opened = std::move(store).value();
    const auto rows = opened->open("Hall_of_Fame");
    if (auto failure = rows->add_row()) return failure;
    rows->set_field("Pupil_id", std::int64_t{1});
    rows->set_field("TimeTaken", time);
    rows->set_field("TimeLimit", std::int64_t{60});
    rows->set_field("Points", std::int64_t{50});
    rows->set_field("GameID", std::int64_t{7});
    return rows->update();
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 5) return EXIT_FAILURE;
    const std::string name = argv[2];
    const auto end = Clock::now() + std::chrono::seconds(std::stoi(argv[3]));
    std::ofstream notes(argv[4], std::ios::app);
    const DiskFiles files(argv[1]);
    SqliteStoreEngine engine(files);
    std::map<std::string, int> refused;
    Clock::duration longest{};
    int kept = 0;
    for (int number = 1; Clock::now() < end; ++number) {
        const std::string time = name + "-" + std::to_string(number);
        while (Clock::now() < end) {
            const auto begin = Clock::now();
            const auto failure = save(engine, files, time);
            longest = std::max(longest, Clock::now() - begin);
            if (!failure) {
                notes << time << std::endl;
                ++kept;
                break;
            }
            ++refused[failure->reason];
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        }
    }
    std::cout << name << ": " << kept << " kept; the longest took "
              << std::chrono::duration_cast<std::chrono::milliseconds>(longest).count() << " ms";
    for (const auto& [reason, times] : refused) std::cout << "; " << times << " x \"" << reason << '"';
    std::cout << '\n';
}
