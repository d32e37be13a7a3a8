#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/store.h"

namespace marrowfen {

struct KeptPupil {
    std::int64_t number = 0;  ///< 1 to 32767, never given twice
    std::string name;
    bool operator==(const KeptPupil&) const = default;
};

/// A result just as it lies in the store, so that it can be put back to the letter. A text that is Null there is empty.
struct KeptResult {
    std::int64_t row = 0;  ///< results are numbered in the order in which they were kept
    std::int64_t pupil = 0;
    std::int64_t game = 0;
    std::int64_t time_limit = 0;  ///< seconds; 0: a typing test
    std::int64_t points = 0;
    std::string time_taken;   ///< "1:05"
    std::string date;         ///< "2026-03-09"
    std::string time_played;  ///< "10:05:00"
    bool operator==(const KeptResult&) const = default;
};

/// Which results are meant. What is not given does not matter; dates are compared in their ISO form.
struct ResultFilter {
    std::vector<std::int64_t> pupils = {};  ///< empty: all, removed ones too
    std::optional<std::int64_t> game = {};
    std::optional<std::int64_t> time_limit = {};
    std::string from = {};  ///< empty: from the first on
    std::string to = {};    ///< this day included; empty: to the last
    bool operator==(const ResultFilter&) const = default;
};

/// What is to become of pupils and results.
struct Change {
    std::vector<ResultFilter> removed_results;
    std::vector<std::int64_t> removed_pupils;  ///< one who is not there any more is passed over
    std::vector<KeptPupil> renamed_pupils;
    std::vector<KeptPupil> put_back_pupils;    ///< with the numbers that they had
    std::vector<KeptResult> put_back_results;  ///< in this order; as the rows that they were where those are free
    std::vector<std::string> new_pupils;
};

/// Told as long work goes on. False: stop, and leave everything as it was.
using Progress = std::function<bool(std::int64_t done, std::int64_t of)>;

/// The reason of a failure that the person at the screen asked for.
inline constexpr const char* kStopped = "it was stopped";

/// Pupils and results for whoever looks after them, in numbers for which row sets would be too slow.
class Register {
public:
    virtual ~Register() = default;
    [[nodiscard]] virtual Result<std::vector<KeptPupil>> pupils() = 0;  ///< in the order in which the games list them
    [[nodiscard]] virtual Result<std::int64_t> count_results() = 0;
    /// The results after a row, 0 for the first, in their order. Nothing is locked between two calls.
    [[nodiscard]] virtual Result<std::vector<KeptResult>> results_after(std::int64_t row, std::int64_t at_most) = 0;
    /// All of it happens, or nothing. The answer is what takes it back: new pupils would go, names return, and what was
    /// removed would be put back. What was put back does not come into it.
    [[nodiscard]] virtual Result<Change> apply(const Change& change, const Progress& progress) = 0;
};

}  // namespace marrowfen
