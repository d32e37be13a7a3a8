#include "platform/sqlite/inspection.h"

#include <sys/stat.h>

#include <system_error>

#include "platform/sqlite/online_copy.h"
#include "platform/sqlite/store_check.h"

namespace marrowfen {

namespace {

constexpr std::uintmax_t kSmall = 4 << 20;  // bytes; read in a fraction of a second, also over a network

struct stat status_of(const std::filesystem::path& file) {
    struct stat status {};
    if (stat(file.c_str(), &status) != 0) status = {};
    return status;
}

}  // namespace

Inspection::Inspection(std::filesystem::path file)
    : file_(std::move(file)), device_(status_of(file_).st_dev), node_(status_of(file_).st_ino) {}

bool Inspection::is_of(const std::filesystem::path& file) const {
    const auto status = status_of(file);
    return status.st_dev == device_ && status.st_ino == node_;
}

Inspection::State Inspection::state() const {
    const std::lock_guard lock(mutex_);
    return state_;
}

void Inspection::settle(const std::optional<StoreFailure>& failure) {
    const std::lock_guard lock(mutex_);
    if (failure_ && failure_->trouble == Trouble::Damaged) return;
    failure_ = failure;
    state_ = failure ? State::Failed : State::Whole;
}

void Inspection::condemn(const StoreFailure& damage) { settle(damage); }

std::optional<StoreFailure> Inspection::damage() const {
    const std::lock_guard lock(mutex_);
    return failure_ && failure_->trouble == Trouble::Damaged ? failure_ : std::nullopt;
}

void Inspection::begin(Connection& connection) {
    if (damage() || state() == State::Running || state() == State::Whole) return;
    std::error_code error;
    if (std::filesystem::file_size(file_, error) <= kSmall) return settle(check_integrity(connection));
    {
        const std::lock_guard lock(mutex_);
        state_ = State::Running;
    }
    thread_ = std::jthread([this](const std::stop_token& stop) { look(stop); });
}

void Inspection::look(const std::stop_token& stop) {
    constexpr std::chrono::seconds kPatience{10};
    Connection store(file_, Connection::Mode::ReadOnly, kPatience);
    Connection apart("", Connection::Mode::Create, kPatience);  // no name: it is gone with its connection
    auto failure = store.open_failure() ? store.open_failure() : apart.open_failure();
    if (!failure) failure = copy_online(store, apart, stop);
    if (!failure) failure = check_integrity(apart);
    settle(failure);
}

std::optional<StoreFailure> Inspection::verdict(Connection& connection) {
    begin(connection);
    while (state() == State::Running) {
        if (!connection.patience().wait()) {
            return StoreFailure{"it is still being looked through for damage", Trouble::Busy};
        }
    }
    const std::lock_guard lock(mutex_);
    return failure_;
}

}  // namespace marrowfen
