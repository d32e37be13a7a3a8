#pragma once

#include <atomic>
#include <chrono>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <stop_token>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "platform/store.h"

namespace marrowfen {

/// A copy of the store, as its name tells.
struct Copy {
    enum class Kind : std::uint8_t {
        OfTheDay,  ///< "2026-03-09": made by the games, and let go again
        ByHand,    ///< "2026-03-09 14.35.10": somebody asked for it
        SetAside,  ///< "before 2026-03-09 14.35.10": what was there when a copy was put back
        Salvaged   ///< "salvaged 2026-03-09 14.35.10"
    };
    std::filesystem::path file;
    Kind kind = Kind::OfTheDay;
    std::chrono::year_month_day date{};
    std::optional<std::chrono::seconds> time = {};  ///< since midnight; none for one of the day

    [[nodiscard]] std::string name() const { return file.stem().string(); }
};

/// How much a store holds that no build brings back.
struct Holdings {
    std::int64_t pupils = 0;
    std::int64_t results = 0;
};

/// What the folder `Backups` beside the store holds: the copies of the last days, and those that somebody made. Only
/// those of the day are ever let go.
class Copies {
public:
    static constexpr std::size_t kKept = 10;

    /// `store` need not be there. Where it is a link, the copies lie beside the file that it leads to.
    explicit Copies(const std::filesystem::path& store);

    [[nodiscard]] const std::filesystem::path& store() const { return store_; }
    [[nodiscard]] const std::filesystem::path& folder() const { return folder_; }
    [[nodiscard]] std::vector<Copy> list() const;  ///< the newest first; whether they are good is not asked
    /// Of those that were made while all was well: of the day or by hand.
    [[nodiscard]] std::optional<Copy> newest_good() const;

    /// Makes the copy of the day unless it is there, or another computer is making it just now, and lets the oldest go
    /// beyond those that are kept. Pupils can play meanwhile. A failure leaves all copies as they were; when it is
    /// damage, the store itself is damaged.
    [[nodiscard]] std::optional<StoreFailure> keep(std::chrono::year_month_day today,
                                                   const std::stop_token& stop) const;

    /// Makes a copy at once, named after `moment`, which must not be that of another one. As with `keep`, pupils can
    /// play meanwhile, and a failure leaves no half copy.
    [[nodiscard]] Result<Copy> make(const std::string& moment, const std::stop_token& stop) const;

    /// The same in a file of whoever asks, which must not be there yet.
    [[nodiscard]] std::optional<StoreFailure> save_as(const std::filesystem::path& file,
                                                      const std::stop_token& stop) const;

    /// Puts a store into the place of the one that is there, whatever that is, and takes its journal out of the way.
    /// What was there before is kept in the folder of the copies under the name that comes back, empty when there was
    /// nothing. `moment` goes into that name. On failure, and when it is stopped, the store is as it was.
    [[nodiscard]] Result<std::filesystem::path> put_back(const std::filesystem::path& copy, const std::string& moment,
                                                         const std::stop_token& stop = {}) const;

private:
    [[nodiscard]] std::optional<StoreFailure> make_folder() const;
    [[nodiscard]] std::optional<StoreFailure> copy_as(const std::filesystem::path& file,
                                                      const std::stop_token& stop) const;
    void let_the_oldest_go() const;

    std::filesystem::path store_, folder_;
};

/// Makes the copy of the day beside the running program. What it does is over, or given up, at the end of its life.
class DailyCopy {
public:
    explicit DailyCopy(Copies copies) : copies_(std::move(copies)) {}

    void begin(std::chrono::year_month_day today);  ///< unless it is under way
    /// Why there is none, once for each try.
    [[nodiscard]] std::optional<StoreFailure> take_failure();

private:
    const Copies copies_;
    std::atomic<bool> done_ = true;
    std::optional<StoreFailure> failure_;  // the thread's, until it is done
    std::jthread thread_;
};

/// The local date and time as copies are named after it: "2026-03-09 14.35.10".
[[nodiscard]] std::string this_moment();

[[nodiscard]] Result<Holdings> holdings_of(const std::filesystem::path& store);  ///< of a copy, or of the store itself
/// The same of a copy that can be put back. Reads it through; fails with what is wrong with it.
[[nodiscard]] Result<Holdings> good_holdings_of(const std::filesystem::path& copy);

}  // namespace marrowfen
