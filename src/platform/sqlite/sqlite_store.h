#pragma once

#include <chrono>
#include <memory>

#include "platform/content_keeper.h"
#include "platform/files.h"
#include "platform/register.h"
#include "platform/sqlite/patience.h"
#include "platform/store.h"

namespace marrowfen {

class Connection;
class Inspection;

/// The store is a SQLite file, which several computers may have open on a shared folder.
class SqliteStoreEngine final : public StoreEngine {
public:
    /// A write elsewhere is over in a fraction of a second, and longer than two seconds would look like a program that
    /// has stopped. The rest of them is for the work itself.
    static constexpr std::chrono::milliseconds kPatience{1500};

    /// `patience`: how long all that is asked in one turn waits for another computer that is writing.
    explicit SqliteStoreEngine(const Files& files, std::chrono::milliseconds patience = kPatience);
    ~SqliteStoreEngine() override;

    /// Looks the file through before anything is written to it: one of a few megabytes at once, a larger one beside the
    /// running program.
    [[nodiscard]] Result<std::unique_ptr<Store>> open(std::string_view path) override;
    /// The same file, as those see it who look after pupils and results.
    [[nodiscard]] Result<std::unique_ptr<Register>> open_register(std::string_view path);
    /// The same file, as those see it who make words, sentences and the list of games.
    [[nodiscard]] Result<std::unique_ptr<ContentKeeper>> open_content(std::string_view path);

    [[nodiscard]] Patience& patience() { return *patience_; }
    /// From now on nothing is written to the store that is open.
    void condemn(const StoreFailure& damage);

private:
    [[nodiscard]] Result<std::shared_ptr<Connection>> connect(std::string_view path);

    const Files& files_;
    std::shared_ptr<Patience> patience_;
    std::shared_ptr<Inspection> inspection_;
};

}  // namespace marrowfen
