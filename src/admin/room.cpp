#include "admin/room.h"

#include <unistd.h>

#include <atomic>
#include <csignal>
#include <iostream>

#include "school/export.h"

namespace marrowfen {

namespace {

std::atomic<bool> stop_was_asked{false};

void ask_to_stop(int /*signal*/) { stop_was_asked = true; }

}  // namespace

Room::Room(const std::filesystem::path& store)
    : folder_(std::filesystem::is_directory(store) ? store : std::filesystem::absolute(store).parent_path()),
      name_(std::filesystem::is_directory(store) ? "data.mdb" : store.filename().string()),
      files_(folder_) {}

std::filesystem::path Room::file() const { return files_.find(store()).value_or(folder_ / name_); }

void Room::refuse(const StoreFailure& failure) const {
    throw CommandFailure("The file " + file().string() +
                         ", which holds the pupils and results, can't be opened: " + failure.reason);
}

Book& Room::book() {
    if (book_) return *book_;
    auto opened = engine_.open(store());
    if (const auto* failure = opened.failure()) refuse(*failure);
    auto keeper = engine_.open_register(store());
    if (const auto* failure = keeper.failure()) refuse(*failure);
    store_ = std::move(opened).value();
    register_ = std::move(keeper).value();
    book_ = std::make_unique<Book>(*store_, *register_);
    const auto read = book_->refresh(Book::Reading::Everything, shown_progress("Reading"));
    if (const auto* failure = read.failure()) refuse(*failure);
    return *book_;
}

WordSets& Room::words() {
    if (words_) return *words_;
    auto content = engine_.open_content(store());
    if (const auto* failure = content.failure()) refuse(*failure);
    content_ = std::move(content).value();
    words_ = std::make_unique<WordSets>(*content_, folder_ / "Content");
    return *words_;
}

Desk& Room::desk() {
    if (!desk_) desk_ = std::make_unique<Desk>(book(), *register_);
    return *desk_;
}

void fail_if(const std::optional<StoreFailure>& failure) {
    if (failure) throw CommandFailure("Nothing was changed: " + failure->reason);
}

void make_sure(bool yes, const std::string& question) {
    if (yes) return;
    if (isatty(STDIN_FILENO) == 0)
        throw CommandFailure("Nothing was changed: say --yes, since nobody can be asked here");
    std::cerr << question << " [y/N] " << std::flush;
    std::string answer;
    std::getline(std::cin, answer);
    if (answer != "y" && answer != "Y" && answer != "yes") throw CommandFailure("Nothing was changed");
}

Progress shown_progress(const std::string& what) {
    std::signal(SIGINT, ask_to_stop);
    const bool is_watched = isatty(STDERR_FILENO) != 0;
    return [what, is_watched](std::int64_t done, std::int64_t of) {
        constexpr std::int64_t kWhole = 100;
        if (is_watched) {
            std::cerr << '\r' << what << ": " << kWhole * done / std::max<std::int64_t>(of, 1) << " %  " << std::flush;
            if (done >= of) std::cerr << '\n';
        }
        return !stop_was_asked;
    };
}

bool is_standard(const std::filesystem::path& file) { return file == "-"; }

void write_out(const std::filesystem::path& file, const std::function<bool(std::ostream&)>& write) {
    if (!is_standard(file)) {
        if (const auto failure = write_whole_file(file, write)) throw CommandFailure(*failure);
        return;
    }
    if (!write(std::cout) || !std::cout.flush()) throw CommandFailure("The output can't be written to its end");
}

}  // namespace marrowfen
