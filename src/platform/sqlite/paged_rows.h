#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "platform/sqlite/connection.h"
#include "platform/sqlite/query_text.h"

namespace marrowfen {

struct Row {
    std::int64_t rowid = 0;  ///< 0 in a saved query
    std::vector<Value> values;
};

/// The rows of a source that fit a criterion, numbered from 0 in the source's order. They come into memory when they
/// are asked for, in pages that double, and what has come stays. The next page goes on by number, so that nothing is
/// locked between two: when another computer adds or removes an earlier row just then, a row can be missed or come
/// twice.
class PagedRows {
public:
    PagedRows(std::shared_ptr<Connection> connection, const Source& source, Wanted wanted);

    [[nodiscard]] const Wanted& wanted() const { return wanted_; }

    /// Brings a row into memory; whether there is one of that number, from 0 on.
    [[nodiscard]] Result<bool> reach(std::int64_t number);
    [[nodiscard]] const Row* find(std::int64_t number) const;  ///< nullptr: not in memory
    [[nodiscard]] std::int64_t count_in_memory() const { return static_cast<std::int64_t>(rows_.size()); }

    /// How many rows that fit `other` stand up to row `number` of these and on it; all of them when it isn't there.
    /// This walks the source from its first row, so it is for the rare change from one search to another.
    [[nodiscard]] Result<std::int64_t> count_of_others_up_to(std::int64_t number, const Wanted& other) const;

private:
    [[nodiscard]] std::optional<StoreFailure> read_page();

    std::shared_ptr<Connection> connection_;
    const Source* source_;
    Wanted wanted_;
    std::vector<Row> rows_;
    bool complete_ = false;
};

}  // namespace marrowfen
