#pragma once

#include <filesystem>
#include <mutex>
#include <optional>
#include <thread>

#include "platform/sqlite/connection.h"

namespace marrowfen {

/// Looks a store through for damage before anything is written to it. What is small is looked through at once; what
/// would take longer, beside the running program, on a copy in memory, so that no other computer waits for it.
class Inspection {
public:
    /// `file` exists.
    explicit Inspection(std::filesystem::path file);

    /// Whether this file is still the one that bears its name.
    [[nodiscard]] bool is_of(const std::filesystem::path& file) const;
    /// Begins, if it is not under way or done already. `connection` is an open one to the file.
    void begin(Connection& connection);
    /// Why nothing may be written; nullopt: the store is whole. Waits for it as long as the connection's patience
    /// lasts.
    [[nodiscard]] std::optional<StoreFailure> verdict(Connection& connection);
    void condemn(const StoreFailure& damage);  ///< it was found in another way
    /// The damage, if it has been found by now.
    [[nodiscard]] std::optional<StoreFailure> damage() const;

private:
    enum class State : std::uint8_t { Open, Running, Whole, Failed };
    void settle(const std::optional<StoreFailure>& failure);
    void look(const std::stop_token& stop);
    [[nodiscard]] State state() const;

    const std::filesystem::path file_;
    const std::uintmax_t device_, node_;
    mutable std::mutex mutex_;
    State state_ = State::Open;
    std::optional<StoreFailure> failure_;
    std::jthread thread_;  // last, so that it ends first
};

}  // namespace marrowfen
