#include "platform/sqlite/online_copy.h"

#include <sqlite3.h>

#include <chrono>
#include <memory>
#include <thread>

#include "platform/sqlite/reasons.h"

namespace marrowfen {

namespace {

constexpr int kPagesAtOnce = 64;
constexpr std::chrono::seconds kLongest{60};
constexpr std::chrono::milliseconds kMoment{20};

struct Finish {
    void operator()(sqlite3_backup* copy) const { sqlite3_backup_finish(copy); }
};

}  // namespace

// Between two steps nothing is locked. When somebody has written meanwhile, the library begins anew by itself.
std::optional<StoreFailure> copy_online(Connection& from, Connection& to, const std::stop_token& stop) {
    std::unique_ptr<sqlite3_backup, Finish> copy(sqlite3_backup_init(to.handle(), "main", from.handle(), "main"));
    if (!copy) return failure_of(to.handle());
    const auto until = std::chrono::steady_clock::now() + kLongest;
    int result = SQLITE_OK;
    while (result != SQLITE_DONE) {
        if (stop.stop_requested()) return StoreFailure{"the program is about to end"};
        if (std::chrono::steady_clock::now() > until) {
            return StoreFailure{"others write to it all the time", Trouble::Busy};
        }
        result = sqlite3_backup_step(copy.get(), kPagesAtOnce);
        if (result == SQLITE_BUSY || result == SQLITE_LOCKED) {
            std::this_thread::sleep_for(kMoment);
        } else if (result != SQLITE_OK && result != SQLITE_DONE) {
            break;
        }
    }
    // Finishing tells the connection that is copied to what went wrong, whichever of the two it was.
    if (sqlite3_backup_finish(copy.release()) != SQLITE_OK) return failure_of(to.handle());
    return std::nullopt;
}

}  // namespace marrowfen
