#pragma once

#include <concepts>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "platform/value.h"

namespace marrowfen {

/// The kinds of trouble that somebody can do something about; what there is to do depends on the kind.
enum class Trouble : std::uint8_t {
    Other,
    Missing,
    Foreign,      ///< a file, but not a store of ours
    Damaged,      ///< nothing is written to it
    Busy,         ///< another computer holds it: asking again later helps
    Newer,        ///< made by a later version of the program
    NotWritable,  ///< for this account
    Refused,      ///< it does not fit what is stored already
};

/// Why the store could not do something, as the rest of a sentence for a person: "the disk is full".
struct StoreFailure {
    std::string reason;
    Trouble trouble = Trouble::Other;
};

/// What was asked for, or why it can't be had. Whoever asks looks at `failure` first: nullptr means that there is a
/// value.
template <class T>
class [[nodiscard]] Result {
public:
    template <std::same_as<T> Same>  // nothing that is merely turned into a T, as any pointer is into a bool
    Result(Same value) : answer_(std::in_place_index<0>, std::move(value)) {}
    Result(StoreFailure failure) : answer_(std::in_place_index<1>, std::move(failure)) {}

    [[nodiscard]] const StoreFailure* failure() const& { return std::get_if<1>(&answer_); }
    [[nodiscard]] const StoreFailure* failure() const&& = delete;  // it would not outlive the line
    [[nodiscard]] const T& value() const& { return std::get<0>(answer_); }
    [[nodiscard]] T value() && { return std::get<0>(std::move(answer_)); }
    [[nodiscard]] T value_or(T otherwise) const { return failure() ? std::move(otherwise) : value(); }

private:
    std::variant<T, StoreFailure> answer_;
};

/// A cursor over the rows of a table or a saved query, in the source's order. Table and field names are taken without
/// regard to case. It reads nothing before it is asked: opened, it stands on its first row without having seen it.
///
/// A move or a search answers whether there is a row where it has led: false is past the last row, or no match, and an
/// empty source has no first row. Or it answers why that can't be read; then the row set stands where it stood, and may
/// be asked again. What was answered is in memory, so that to read a field can't fail.
///
/// A criterion is `field=number` or `field='text'`, several joined by `And`, blanks where one likes; a single quote
/// inside the text is doubled. Text is compared by Unicode case folding. A criterion that can't be understood, or names
/// a field that is not there, fits no row.
class RowSet {
public:
    virtual ~RowSet() = default;

    [[nodiscard]] virtual Result<bool> move_first() = 0;
    [[nodiscard]] Result<bool> move_next() { return move_forward(1); }
    [[nodiscard]] virtual Result<bool> move_forward(std::int64_t rows) = 0;  ///< 0: stays
    [[nodiscard]] virtual Result<bool> find_first(std::string_view criterion) = 0;
    [[nodiscard]] virtual Result<bool> find_next(std::string_view criterion) = 0;
    /// Of the row that was answered last, or of the new one between `add_row` and `update`. Null when there is no such
    /// row or field.
    [[nodiscard]] virtual Value field(std::string_view name) const = 0;

    /// Begins a new row. A field that the store assigns can be read from now on.
    [[nodiscard]] virtual std::optional<StoreFailure> add_row() = 0;
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
    /// Never nullptr. Reads nothing: whether there is such a table or query comes out with the first question.
    [[nodiscard]] virtual std::unique_ptr<RowSet> open(std::string_view table_or_query) = 0;
};

class StoreEngine {
public:
    virtual ~StoreEngine() = default;
    /// Opens an existing store, shared, to read and to write. `path` is written with backslashes. Creates nothing.
    [[nodiscard]] virtual Result<std::unique_ptr<Store>> open(std::string_view path) = 0;
};

}  // namespace marrowfen
