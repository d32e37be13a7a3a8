#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/content_keeper.h"
#include "platform/sqlite/connection.h"
#include "platform/sqlite/schema.h"

namespace marrowfen {

/// The tables that a teacher made. They are listed in a table that is there from the first of them on: a store of an
/// older program, or one that nobody changed, has none.
[[nodiscard]] Result<std::vector<std::string>> own_sets(Connection& connection);
/// Inside a transaction.
[[nodiscard]] std::optional<StoreFailure> note_maker(Connection& connection, const Source& table, Maker maker);

/// All rows, with the fields that the program of today knows. Fails where one of them is missing.
[[nodiscard]] Result<std::vector<Values>> rows_in(Connection& connection, const Source& table);

class SqliteContentKeeper final : public ContentKeeper {
public:
    explicit SqliteContentKeeper(std::shared_ptr<Connection> connection) : connection_(std::move(connection)) {}

    [[nodiscard]] Result<Maker> maker_of(std::string_view table) override;
    [[nodiscard]] Result<std::vector<Values>> rows_of(std::string_view table) override;
    [[nodiscard]] std::optional<StoreFailure> replace(std::string_view table, const std::vector<Values>& rows,
                                                      Maker maker) override;

private:
    std::shared_ptr<Connection> connection_;
};

}  // namespace marrowfen
