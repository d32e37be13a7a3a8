#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/sqlite/new_row.h"
#include "platform/sqlite/paged_rows.h"
#include "platform/store.h"

namespace marrowfen {

/// The cursor stands on a row of the last search, or of the whole source when it was moved since. Moving away,
/// searching or deleting gives up a new row that was not stored.
class SqliteRowSet final : public RowSet {
public:
    SqliteRowSet(std::shared_ptr<Connection> connection, const Source& source);

    [[nodiscard]] Result<bool> move_first() override;
    [[nodiscard]] Result<bool> move_forward(std::int64_t rows) override;
    [[nodiscard]] Result<bool> find_first(std::string_view criterion) override;
    [[nodiscard]] Result<bool> find_next(std::string_view criterion) override;
    [[nodiscard]] Value field(std::string_view name) const override;

    [[nodiscard]] std::optional<StoreFailure> add_row() override;
    void set_field(std::string_view name, Value value) override;
    [[nodiscard]] std::optional<StoreFailure> update() override;
    [[nodiscard]] std::optional<StoreFailure> delete_row() override;

private:
    [[nodiscard]] Result<bool> search(Wanted wanted, std::int64_t number);
    [[nodiscard]] Result<bool> go_to(std::int64_t number);

    std::shared_ptr<Connection> connection_;
    const Source& source_;
    PagedRows rows_;
    std::int64_t number_ = 0;  // in rows_; -1: before the first row
    std::optional<NewRow> new_row_;
};

}  // namespace marrowfen
