#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "platform/sqlite/patience.h"
#include "platform/store.h"

struct sqlite3;

namespace marrowfen {

class Inspection;

/// An open store file. Other computers may have the same file open, so nothing is locked between two calls unless a
/// transaction is open.
class Connection {
public:
    enum class Mode : std::uint8_t { Existing, ReadOnly, Create };

    /// `patience`: for another computer that is writing. Ask `open_failure` before anything else.
    Connection(const std::filesystem::path& file, Mode mode, std::shared_ptr<Patience> patience);
    Connection(const std::filesystem::path& file, Mode mode, std::chrono::milliseconds patience)
        : Connection(file, mode, std::make_shared<Patience>(patience)) {}
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    [[nodiscard]] const std::optional<StoreFailure>& open_failure() const { return open_failure_; }
    [[nodiscard]] bool read_only() const;
    /// Sees to it that what is written lasts. Only for a file that is known to be ours: this may change it.
    [[nodiscard]] std::optional<StoreFailure> prepare_to_write();

    void set_inspection(std::shared_ptr<Inspection> inspection);
    /// Why nothing may be written just now. Without an inspection there is never a reason.
    [[nodiscard]] std::optional<StoreFailure> write_refusal();
    /// A statement of this connection has come upon it.
    void note_damage(const StoreFailure& damage);

    /// Runs a statement that has no result.
    [[nodiscard]] std::optional<StoreFailure> run(const std::string& sql);
    [[nodiscard]] sqlite3* handle() const { return handle_; }
    [[nodiscard]] Patience& patience() { return *patience_; }

private:
    sqlite3* handle_ = nullptr;
    std::shared_ptr<Patience> patience_;
    std::shared_ptr<Inspection> inspection_;
    std::optional<StoreFailure> open_failure_;
};

/// Holds the right to write from `begin` to `commit`. Whatever was not committed is taken back at the end of its life.
class Transaction {
public:
    explicit Transaction(Connection& connection) : connection_(connection) {}
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    [[nodiscard]] std::optional<StoreFailure> begin();
    [[nodiscard]] std::optional<StoreFailure> commit();

private:
    Connection& connection_;
    bool open_ = false;
};

}  // namespace marrowfen
