#pragma once

#include <chrono>
#include <memory>

#include "platform/content_keeper.h"
#include "platform/files.h"
#include "platform/register.h"
#include "platform/store.h"

namespace marrowfen {

class Connection;

/// The store is a SQLite file, which several computers may have open on a shared folder.
class SqliteStoreEngine final : public StoreEngine {
public:
    /// A write elsewhere is over in a fraction of a second, and much longer than this would look like a program that
    /// has stopped.
    static constexpr std::chrono::seconds kBusyTimeout{5};

    /// `busy_timeout`: how long one operation waits for another computer that is writing.
    explicit SqliteStoreEngine(const Files& files, std::chrono::milliseconds busy_timeout = kBusyTimeout);

    [[nodiscard]] Result<std::unique_ptr<Store>> open(std::string_view path) override;
    /// The same file, as those see it who look after pupils and results.
    [[nodiscard]] Result<std::unique_ptr<Register>> open_register(std::string_view path);
    /// The same file, as those see it who make words, sentences and the list of games.
    [[nodiscard]] Result<std::unique_ptr<ContentKeeper>> open_content(std::string_view path);

private:
    [[nodiscard]] Result<std::shared_ptr<Connection>> connect(std::string_view path);

    const Files& files_;
    std::chrono::milliseconds busy_timeout_;
};

}  // namespace marrowfen
