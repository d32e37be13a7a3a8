#pragma once

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/sqlite/connection.h"
#include "platform/sqlite/schema.h"

namespace marrowfen {

/// Stores a complete row. `values` are those of the source's fields, in their order.
[[nodiscard]] std::optional<StoreFailure> insert_row(Connection& connection, const Source& source,
                                                     const std::vector<Value>& values);

/// A row on its way into a table. Where the store assigns a number, the row takes the right to write as it begins and
/// holds it to its end, so that no other computer can give out the same number: it should not live long.
class NewRow {
public:
    NewRow(std::shared_ptr<Connection> connection, const Source& source);

    [[nodiscard]] std::optional<StoreFailure> begin();  ///< once, before anything else
    [[nodiscard]] Value field(std::string_view name) const;
    void set(std::string_view name, Value value);
    [[nodiscard]] std::optional<StoreFailure> store();  ///< once. A field that could not be set comes out here

private:
    [[nodiscard]] std::optional<StoreFailure> reserve_number();
    [[nodiscard]] std::optional<std::size_t> index_of(std::string_view name) const;

    std::shared_ptr<Connection> connection_;
    const Source* source_;
    std::vector<Value> values_;
    std::optional<StoreFailure> failure_;
    std::optional<Transaction> transaction_;  // after the connection, which it needs to the last
};

}  // namespace marrowfen
