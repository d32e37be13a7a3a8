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

    [[nodiscard]] std::optional<StoreFailure> failure() const override { return rows_.failure(); }
    [[nodiscard]] bool at_end() const override;
    [[nodiscard]] std::int64_t row_count() const override;
    void move_first() override;
    void move_forward(std::int64_t rows) override;
    void find_first(std::string_view criterion) override;
    void find_next(std::string_view criterion) override;
    [[nodiscard]] bool no_match() const override { return no_match_; }
    [[nodiscard]] Value field(std::string_view name) const override;

    void add_row() override;
    void set_field(std::string_view name, Value value) override;
    [[nodiscard]] std::optional<StoreFailure> update() override;
    [[nodiscard]] std::optional<StoreFailure> delete_row() override;

private:
    void stand_on(Wanted wanted, std::int64_t number);
    void give_up_place() { number_ = rows_.count_in_memory(); }  ///< at the end: the way on can't be read

    std::shared_ptr<Connection> connection_;
    const Source& source_;
    PagedRows rows_;
    std::int64_t number_ = 0;  // in rows_; -1: before the first row
    bool no_match_ = false;
    std::optional<NewRow> new_row_;
};

}  // namespace marrowfen
