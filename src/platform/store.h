#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/value.h"

namespace marrowfen {

/// Why the store could not do something, as the rest of a sentence for a person: "the disk is full".
struct StoreFailure {
    std::string reason;
};

/// A cursor over the rows of a table or a saved query, in the source's order, standing on the first row if there is
/// one. Table and field names are taken without regard to case. A row set whose rows can't be read is empty, and
/// `failure` says why.
///
/// A criterion is `field=number` or `field='text'`, several joined by `And`, blanks where one likes; a single quote
/// inside the text is doubled. Text is compared by Unicode case folding. A criterion that can't be understood, or names
/// a field that is not there, fits no row.
class RowSet {
public:
    virtual ~RowSet() = default;
    [[nodiscard]] virtual std::optional<StoreFailure> failure() const = 0;

    [[nodiscard]] virtual bool at_end() const = 0;
    [[nodiscard]] virtual std::int64_t row_count() const = 0;  ///< 0 when there are none, otherwise not 0
    virtual void move_first() = 0;
    void move_next() { move_forward(1); }
    virtual void move_forward(std::int64_t rows) = 0;
    virtual void find_first(std::string_view criterion) = 0;
    virtual void find_next(std::string_view criterion) = 0;
    [[nodiscard]] virtual bool no_match() const = 0;
    /// Of the current row, or of the new one between `add_row` and `update`. Null when there is no such row or field.
    [[nodiscard]] virtual Value field(std::string_view name) const = 0;

    virtual void add_row() = 0;  ///< begins a new row; a field that the store assigns can be read from now on
    virtual void set_field(std::string_view name, Value value) = 0;
    /// Stores the new row. On failure nothing is stored and the row is given up.
    [[nodiscard]] virtual std::optional<StoreFailure> update() = 0;
    /// Removes the current row, which leaves the row set before its first row: `move_first` or a find comes next.
    [[nodiscard]] virtual std::optional<StoreFailure> delete_row() = 0;
};

/// The one file that lasts. A row set stays usable when the store that opened it has gone.
class Store {
public:
    virtual ~Store() = default;
    /// Never nullptr. Opening never waits for the whole of a large table.
    [[nodiscard]] virtual std::unique_ptr<RowSet> open(std::string_view table_or_query) = 0;
};

struct OpenedStore {
    std::unique_ptr<Store> store;  ///< nullptr when it can't be opened
    StoreFailure failure;          ///< says why
};

class StoreEngine {
public:
    virtual ~StoreEngine() = default;
    /// Opens an existing store, shared, to read and to write. `path` is written with backslashes. Creates nothing.
    [[nodiscard]] virtual OpenedStore open(std::string_view path) = 0;
};

}  // namespace marrowfen
