#include "copies/copies.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <system_error>
#include <utility>

#include "platform/sqlite/connection.h"
#include "platform/sqlite/journal.h"
#include "platform/sqlite/online_copy.h"
#include "platform/sqlite/statement.h"
#include "platform/sqlite/store_check.h"
#include "platform/sqlite/structure.h"
#include "platform/system/disk.h"
#include "platform/value.h"

namespace marrowfen {

namespace {

namespace fs = std::filesystem;

constexpr const char* kEnding = ".mdb";
constexpr std::chrono::seconds kPatience{5};

constexpr std::string_view kBefore = "before ";
constexpr std::string_view kSalvaged = "salvaged ";

/// Whatever has another name was put there by somebody, and is theirs.
std::optional<Copy> as_copy(const fs::path& file) {
    if (file.extension() != kEnding) return std::nullopt;
    const std::string stem = file.stem().string();
    std::string_view name = stem;
    Copy copy{.file = file};
    for (const auto& [prefix, kind] : {std::pair{kBefore, Copy::Kind::SetAside}, {kSalvaged, Copy::Kind::Salvaged}}) {
        if (!name.starts_with(prefix)) continue;
        name.remove_prefix(prefix.size());
        copy.kind = kind;
    }
    const auto blank = name.find(' ');
    const auto date = date_in(name.substr(0, blank));
    if (!date) return std::nullopt;
    copy.date = *date;
    if (blank == std::string_view::npos) return copy.kind == Copy::Kind::OfTheDay ? std::optional(copy) : std::nullopt;
    std::string time(name.substr(blank + 1));
    std::ranges::replace(time, '.', ':');
    copy.time = time_in(time);
    if (!copy.time) return std::nullopt;
    if (copy.kind == Copy::Kind::OfTheDay) copy.kind = Copy::Kind::ByHand;
    return copy;
}

StoreFailure failed(const std::string& what, const std::error_code& error) {
    if (error == std::errc::no_space_on_device) return {what + ": the disk is full"};
    return {what + ": " + error.message()};
}

void remove_with_journal(const fs::path& file) {
    std::error_code ignored;
    fs::remove(file, ignored);
    remove_journal(file);
}

/// A copy must leave room for the results that pupils are about to win.
std::optional<StoreFailure> check_room(const fs::path& folder, std::uintmax_t size) {
    constexpr std::uintmax_t kLeft = 16 << 20;
    std::error_code error;
    const auto space = fs::space(folder, error);
    if (!error && space.available < size + kLeft) return StoreFailure{"the disk is too full for a copy"};
    return std::nullopt;
}

/// A whole copy of one store in another file, on the disk when it succeeds. On failure there is no such file.
std::optional<StoreFailure> make_copy(const fs::path& from, const fs::path& to, const std::stop_token& stop) {
    remove_with_journal(to);
    std::optional<StoreFailure> failure;
    {
        Connection source(from, Connection::Mode::ReadOnly, kPatience);
        failure = source.open_failure();
        if (!failure) failure = check_head(source, from);
        if (!failure) failure = check_identity(source);
        if (!failure) {
            Connection copy(to, Connection::Mode::Create, kPatience);
            failure = copy.open_failure();
            if (!failure) failure = copy_online(source, copy, stop);
            if (!failure) failure = check_integrity(copy);
        }
    }
    std::error_code error;
    if (!failure) fs::permissions(to, fs::status(from).permissions(), error);
    if (!failure && !error) error = make_last(to);
    if (!failure && error) failure = failed("the copy can't be finished", error);
    if (failure) remove_with_journal(to);
    return failure;
}

/// A copy from before an upgrade lacks the lists and indexes that came with it.
std::optional<StoreFailure> bring_up_to_date(const fs::path& file) {
    Connection connection(file, Connection::Mode::Existing, kPatience);
    if (auto failure = connection.open_failure()) return failure;
    if (!check_structure(connection)) return std::nullopt;
    if (auto failure = connection.prepare_to_write()) return failure;
    Transaction transaction(connection);
    if (auto failure = transaction.begin()) return failure;
    if (auto failure = make_structure(connection)) return failure;
    return transaction.commit();
}

/// A store that is damaged can't be locked, and whoever has it open writes nothing to it either.
std::optional<StoreFailure> keep_out_others(Connection& store, const fs::path& file) {
    if (store.open_failure() || check_head(store, file)) return std::nullopt;
    const auto failure = store.run("BEGIN EXCLUSIVE");
    return failure && failure->trouble == Trouble::Busy ? failure : std::nullopt;
}

/// A second name is made at once and takes no room. Where the drive has no such thing, it is a copy.
std::optional<StoreFailure> set_aside(const fs::path& file, const fs::path& other_name) {
    std::error_code error;
    fs::create_hard_link(file, other_name, error);
    if (error) fs::copy_file(file, other_name, error);
    if (!error && fs::exists(journal_of(file))) fs::rename(journal_of(file), journal_of(other_name), error);
    if (!error) error = make_last(other_name.parent_path());
    if (error) return failed("what is there now can't be kept aside", error);
    return std::nullopt;
}

}  // namespace

Copies::Copies(const fs::path& store) : store_(store) {
    std::error_code error;
    if (const fs::path real = fs::weakly_canonical(store, error); !error) store_ = real;
    folder_ = store_.parent_path() / "Backups";
}

std::vector<Copy> Copies::list() const {
    std::vector<Copy> copies;
    std::error_code error;
    for (fs::directory_iterator entry(folder_, error), end; !error && entry != end; entry.increment(error)) {
        if (auto copy = as_copy(entry->path())) copies.push_back(std::move(*copy));
    }
    std::ranges::sort(copies, std::ranges::greater{}, [](const Copy& copy) { return std::pair(copy.date, copy.time); });
    return copies;
}

std::optional<Copy> Copies::newest_good() const {
    const auto copies = list();
    const auto good = std::ranges::find_if(copies, [](const Copy& copy) {
        return (copy.kind == Copy::Kind::OfTheDay || copy.kind == Copy::Kind::ByHand) && !check_copy(copy.file);
    });
    return good == copies.end() ? std::nullopt : std::optional(*good);
}

// As open to others as the folder of the store, so that whoever plays next can add to it.
std::optional<StoreFailure> Copies::make_folder() const {
    std::error_code error;
    if (fs::create_directory(folder_, error)) {
        fs::permissions(folder_, fs::status(folder_.parent_path()).permissions(), error);
    }
    if (error) return failed("the folder " + folder_.string() + " can't be made", error);
    return std::nullopt;
}

std::optional<StoreFailure> Copies::keep(std::chrono::year_month_day today, const std::stop_token& stop) const {
    const fs::path file = folder_ / (as_text(Value{today}) + kEnding);
    std::error_code error;
    if (fs::exists(file, error)) return std::nullopt;
    if (auto failure = make_folder()) return failure;
    const SoleRight right(folder_ / ".in-the-making");
    if (!right.held() || fs::exists(file, error)) return std::nullopt;
    if (auto failure = copy_as(file, stop)) return failure;
    let_the_oldest_go();
    return std::nullopt;
}

Result<Copy> Copies::make(const std::string& moment, const std::stop_token& stop) const {
    const fs::path file = folder_ / (moment + kEnding);
    const auto copy = as_copy(file);
    std::error_code error;
    if (!copy || fs::exists(file, error)) return StoreFailure{"there is a copy " + moment + " already"};
    if (auto failure = make_folder()) return *failure;
    const SoleRight right(folder_ / ".in-the-making");
    if (!right.held()) return StoreFailure{"another computer is making a copy just now", Trouble::Busy};
    if (auto failure = copy_as(file, stop)) return *failure;
    return *copy;
}

std::optional<StoreFailure> Copies::save_as(const fs::path& file, const std::stop_token& stop) const {
    std::error_code error;
    if (fs::exists(file, error)) return StoreFailure{file.string() + " is there already"};
    const fs::path unfinished = fs::path(file) += ".part";
    if (auto failure = make_copy(store_, unfinished, stop)) return failure;
    fs::rename(unfinished, file, error);
    if (error) return failed("the copy can't be named", error);
    return std::nullopt;
}

/// For whoever holds the right to make copies.
std::optional<StoreFailure> Copies::copy_as(const fs::path& file, const std::stop_token& stop) const {
    std::error_code error;
    const auto size = fs::file_size(store_, error);
    if (error) return failed("the store can't be read", error);
    if (auto failure = check_room(folder_, size)) return failure;
    const fs::path unfinished = folder_ / ".unfinished";
    if (auto failure = make_copy(store_, unfinished, stop)) return failure;
    fs::rename(unfinished, file, error);
    if (error) return failed("the copy can't be named", error);
    error = make_last(folder_);
    if (error) return failed("the copy can't be finished", error);
    return std::nullopt;
}

void Copies::let_the_oldest_go() const {
    auto copies = list();
    std::erase_if(copies, [](const Copy& copy) { return copy.kind != Copy::Kind::OfTheDay; });
    std::error_code ignored;  // tomorrow it is tried again
    for (std::size_t i = kKept; i < copies.size(); ++i) fs::remove(copies[i].file, ignored);
}

// What was there gets a second name, and its journal goes with it, before the name of the store changes hands. A crash
// on the way leaves the store without its journal, which can be replaced again, never a new store with a journal that
// spoils it. Whoever still has the old file open is told that it was moved.
Result<fs::path> Copies::put_back(const fs::path& copy, const std::string& moment, const std::stop_token& stop) const {
    if (auto failure = make_folder()) return *failure;
    const fs::path next = fs::path(store_) += ".new";
    if (auto failure = make_copy(copy, next, stop)) return *failure;
    auto failure = bring_up_to_date(next);
    fs::path before;
    std::error_code error;
    std::optional<Connection> old;
    if (!failure && fs::exists(store_, error)) {
        fs::permissions(next, fs::status(store_).permissions(), error);
        old.emplace(store_, Connection::Mode::Existing, kPatience);
        failure = keep_out_others(*old, store_);
        before = folder_ / (std::string(kBefore) + moment + kEnding);
        if (!failure) failure = set_aside(store_, before);
    }
    if (failure) {
        remove_with_journal(next);
        return *failure;
    }
    remove_journal(store_);
    fs::rename(next, store_, error);
    if (!error) error = make_last(store_.parent_path());
    if (error) return failed("the copy can't be put in its place", error);
    return before;
}

void DailyCopy::begin(std::chrono::year_month_day today) {
    if (!done_) return;
    done_ = false;
    thread_ = std::jthread([this, today](const std::stop_token& stop) {
        failure_ = copies_.keep(today, stop);
        done_ = true;
    });
}

std::optional<StoreFailure> DailyCopy::take_failure() {
    if (!done_) return std::nullopt;
    return std::exchange(failure_, std::nullopt);
}

std::string this_moment() {
    constexpr std::size_t kEnough = 32;
    std::array<char, kEnough> text{};
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    localtime_r(&now, &parts);
    return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d %H.%M.%S", &parts)};
}

Result<Holdings> holdings_of(const fs::path& store) {
    Connection connection(store, Connection::Mode::ReadOnly, kPatience);
    if (const auto& failure = connection.open_failure()) return *failure;
    Statement count(connection, "SELECT (SELECT count(*) FROM Pupils), (SELECT count(*) FROM Hall_of_Fame)");
    if (count.step() != Statement::Step::Row) return count.failure();
    return Holdings{count.whole(0), count.whole(1)};
}

Result<Holdings> good_holdings_of(const fs::path& copy) {
    if (auto failure = check_copy(copy)) return *failure;
    return holdings_of(copy);
}

}  // namespace marrowfen
