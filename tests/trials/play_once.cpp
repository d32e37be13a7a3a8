// What one lesson asks of the store, for an account that has nothing but rights: adds a pupil and a result, and makes
// the copy of the day. With --crash it dies in the middle of writing. Usage: play_once STORE NAME [--crash]

#include <sys/resource.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>

#include "copies/copies.h"
#include "platform/sqlite/sqlite_store.h"
#include "platform/system/disk_files.h"

namespace marrowfen {

namespace {

/// Whoever writes behind the end of the file is killed; the journal is shorter than that.
void let_die(const std::filesystem::path& store) {
    rlimit as_long_as_it_is{};
    as_long_as_it_is.rlim_cur = as_long_as_it_is.rlim_max = std::filesystem::file_size(store);
    setrlimit(RLIMIT_FSIZE, &as_long_as_it_is);
}

std::optional<StoreFailure> play(Store& store, const std::string& name) {
    const auto pupils = store.open("Pupils");
    if (auto failure = pupils->add_row()) return failure;
    pupils->set_field("PupilName", name);
    return pupils->update();
}

int run(const std::filesystem::path& file, const std::string& name, bool crash) {
    const DiskFiles files(file.parent_path());
    SqliteStoreEngine engine(files);
    const auto opened = engine.open(files.program_folder() + "\\data.mdb");
    std::optional<StoreFailure> failure;
    if (opened.failure()) failure = *opened.failure();
    if (!failure && crash) let_die(file);
    for (int i = 0; crash && !failure; ++i)
        failure = play(*opened.value(), name + std::to_string(i) + std::string(40, 'x'));
    if (!failure) failure = play(*opened.value(), name);
    constexpr std::chrono::year_month_day kToday{std::chrono::year{2026}, std::chrono::March, std::chrono::day{9}};
    if (!failure) failure = Copies(file).keep(kToday, {});
    if (failure) (void)std::fprintf(stderr, "%s: %s\n", name.c_str(), failure->reason.c_str());
    return failure ? EXIT_FAILURE : EXIT_SUCCESS;
}

}  // namespace

}  // namespace marrowfen

int main(int argc, char** argv) { return argc < 3 ? EXIT_FAILURE : marrowfen::run(argv[1], argv[2], argc > 3); }
