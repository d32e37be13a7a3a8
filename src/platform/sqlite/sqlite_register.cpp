#include "platform/sqlite/sqlite_register.h"

#include <algorithm>
#include <iterator>

#include "platform/sqlite/new_row.h"
#include "platform/sqlite/schema.h"
#include "platform/sqlite/statement.h"
#include "platform/text/folding.h"

namespace marrowfen {

namespace {

using Outcome = std::optional<StoreFailure>;  ///< none: it worked
using Step = Statement::Step;

constexpr const char* kResultFields = "rowid, Pupil_id, GameID, TimeLimit, Points, TimeTaken, TheDate, timeplayed";

KeptResult result_in(const Statement& row) {
    enum Column : std::uint8_t { kRow, kPupil, kGame, kTimeLimit, kPoints, kTimeTaken, kDate, kTimePlayed };
    const auto text = [&row](Column column) { return as_text(row.value(column, FieldType::Text)); };
    return {.row = row.whole(kRow),
            .pupil = row.whole(kPupil),
            .game = row.whole(kGame),
            .time_limit = row.whole(kTimeLimit),
            .points = row.whole(kPoints),
            .time_taken = text(kTimeTaken),
            .date = text(kDate),
            .time_played = text(kTimePlayed)};
}

/// The rows of a statement, each as `read` gives it.
template <class Read>
auto rows_of(Statement& statement, const Read& read) -> Result<std::vector<decltype(read(statement))>> {
    std::vector<decltype(read(statement))> rows;
    auto step = statement.step();
    for (; step == Step::Row; step = statement.step()) rows.push_back(read(statement));
    if (step == Step::Failed) return statement.failure();
    return rows;
}

/// Numbers as one parameter can hold them.
std::string as_list(const std::vector<std::int64_t>& numbers) {
    std::string list = "[";
    for (const auto number : numbers) list.append(list.size() > 1 ? "," : "").append(std::to_string(number));
    return list + "]";
}

/// A filter as SQL, and the values of its parameters.
struct Condition {
    std::string text = "1";
    std::vector<Value> values;

    explicit Condition(const ResultFilter& filter) {
        const auto add = [this](const char* term, Value value) {
            text.append(" AND ").append(term);
            values.push_back(std::move(value));
        };
        if (!filter.pupils.empty()) add("Pupil_id IN (SELECT value FROM json_each(?))", as_list(filter.pupils));
        if (filter.game) add("GameID = ?", *filter.game);
        if (filter.time_limit) add("TimeLimit = ?", *filter.time_limit);
        if (!filter.from.empty()) add("TheDate >= ?", filter.from);
        if (!filter.to.empty()) add("TheDate <= ?", filter.to);
    }
};

/// One change on its way into the store, inside a transaction, and what would take it back.
class Applying {
public:
    Applying(Connection& connection, const Change& change, const Progress& progress)
        : connection_(connection), change_(change), progress_(progress) {}

    [[nodiscard]] Outcome all() {
        if (auto failure = count_steps()) return failure;
        for (const ResultFilter& filter : change_.removed_results) {
            if (auto failure = remove_results(filter)) return failure;
        }
        for (const auto pupil : change_.removed_pupils) {
            if (auto failure = remove_pupil(pupil)) return failure;
        }
        for (const KeptPupil& pupil : change_.renamed_pupils) {
            if (auto failure = rename(pupil)) return failure;
        }
        for (const KeptPupil& pupil : change_.put_back_pupils) {
            if (auto failure = add(pupil.number, pupil.name)) return failure;
        }
        for (const KeptResult& result : change_.put_back_results) {
            if (auto failure = put_back(result)) return failure;
        }
        for (const std::string& name : change_.new_pupils) {
            if (auto failure = add({}, name)) return failure;
        }
        return std::nullopt;
    }

    [[nodiscard]] Change take_reverse() { return std::move(reverse_); }

private:
    [[nodiscard]] Outcome count_steps() {
        const auto size = [](const auto& list) { return static_cast<std::int64_t>(list.size()); };
        of_ = size(change_.removed_pupils) + size(change_.renamed_pupils) + size(change_.put_back_pupils) +
              size(change_.put_back_results) + size(change_.new_pupils);
        for (const ResultFilter& filter : change_.removed_results) {
            const Condition condition(filter);
            Statement count(connection_, "SELECT count(*) FROM Hall_of_Fame WHERE " + condition.text);
            for (const Value& value : condition.values) count.bind(value);
            if (count.step() != Step::Row) return count.failure();
            of_ += count.whole(0);
        }
        return std::nullopt;
    }

    [[nodiscard]] Outcome did(std::int64_t steps) {
        constexpr std::int64_t kBetweenTwoLooks = 256;
        const bool tells = (done_ + steps) / kBetweenTwoLooks != done_ / kBetweenTwoLooks;
        done_ += steps;
        if (tells && progress_ && !progress_(done_, of_)) return StoreFailure{kStopped};
        return std::nullopt;
    }

    [[nodiscard]] static Outcome finish(Statement& statement) {
        return statement.step() == Step::Failed ? Outcome(statement.failure()) : std::nullopt;
    }

    /// In portions, so that somebody can watch and stop it.
    [[nodiscard]] Outcome remove_results(const ResultFilter& filter) {
        constexpr std::int64_t kPortion = 10'000;
        const Condition condition(filter);
        const std::string from_here = " FROM Hall_of_Fame WHERE rowid > ? AND " + condition.text;
        for (std::int64_t row = 0;;) {
            Statement select(connection_,
                             "SELECT " + std::string(kResultFields) + from_here + " ORDER BY rowid LIMIT ?");
            select.bind(row);
            for (const Value& value : condition.values) select.bind(value);
            select.bind(kPortion);
            auto rows = rows_of(select, result_in);
            if (const auto* failure = rows.failure()) return *failure;
            std::vector<KeptResult> found = std::move(rows).value();
            if (found.empty()) return std::nullopt;
            Statement remove(connection_, "DELETE" + from_here + " AND rowid <= ?");
            remove.bind(row);
            for (const Value& value : condition.values) remove.bind(value);
            remove.bind(row = found.back().row);
            if (auto failure = finish(remove)) return failure;
            if (auto failure = did(static_cast<std::int64_t>(found.size()))) return failure;
            std::ranges::move(found, std::back_inserter(reverse_.put_back_results));
        }
    }

    /// Empty: there is no such pupil.
    [[nodiscard]] Result<std::string> name_of(std::int64_t pupil) {
        Statement select(connection_, "SELECT PupilName FROM Pupils WHERE Pupil_ID = ?");
        select.bind(pupil);
        const auto step = select.step();
        if (step == Step::Failed) return select.failure();
        return step == Step::Row ? as_text(select.value(0, FieldType::Text)) : std::string{};
    }

    [[nodiscard]] Outcome remove_pupil(std::int64_t pupil) {
        const auto name = name_of(pupil);
        if (const auto* failure = name.failure()) return *failure;
        if (!name.value().empty()) reverse_.put_back_pupils.push_back({pupil, name.value()});
        Statement remove(connection_, "DELETE FROM Pupils WHERE Pupil_ID = ?");
        remove.bind(pupil);
        if (auto failure = finish(remove)) return failure;
        return did(1);
    }

    [[nodiscard]] Outcome rename(const KeptPupil& pupil) {
        const auto name = name_of(pupil.number);
        if (const auto* failure = name.failure()) return *failure;
        if (name.value().empty()) return StoreFailure{pupil.name + " is not in the list of pupils any more"};
        reverse_.renamed_pupils.push_back({pupil.number, name.value()});
        Statement update(connection_, "UPDATE Pupils SET PupilName = ?, PupilName_folded = ? WHERE Pupil_ID = ?");
        update.bind(pupil.name);
        update.bind(folded(pupil.name));
        update.bind(pupil.number);
        if (auto failure = finish(update)) return about(pupil.name, *failure);
        return did(1);
    }

    [[nodiscard]] Outcome add(std::optional<std::int64_t> number, const std::string& name) {
        const Value known = number ? Value{*number} : Value{};
        if (auto failure = insert_row(connection_, *find_source("Pupils"), {known, name})) return about(name, *failure);
        if (!number) {
            Statement added(connection_, "SELECT last_insert_rowid()");
            if (added.step() != Step::Row) return added.failure();
            reverse_.removed_pupils.push_back(added.whole(0));
        }
        return did(1);
    }

    /// As the row that it was, unless another result has got that number meanwhile.
    [[nodiscard]] Outcome put_back(const KeptResult& result) {
        const auto text = [](const std::string& kept) { return kept.empty() ? Value{} : Value{kept}; };
        Statement insert(connection_,
                         "INSERT INTO Hall_of_Fame (" + std::string(kResultFields) +
                             ") SELECT CASE WHEN EXISTS (SELECT 1 FROM Hall_of_Fame WHERE rowid = ?1) THEN NULL "
                             "ELSE ?1 END, ?2, ?3, ?4, ?5, ?6, ?7, ?8");
        for (const auto number : {result.row, result.pupil, result.game, result.time_limit, result.points}) {
            insert.bind(number);
        }
        insert.bind(result.time_taken);
        insert.bind(text(result.date));
        insert.bind(text(result.time_played));
        if (auto failure = finish(insert)) return failure;
        return did(1);
    }

    static StoreFailure about(const std::string& name, const StoreFailure& failure) {
        return {"'" + name + "' can't be kept: " + failure.reason};
    }

    Connection& connection_;
    const Change& change_;
    const Progress& progress_;
    Change reverse_;
    std::int64_t done_ = 0;
    std::int64_t of_ = 0;
};

}  // namespace

Result<std::vector<KeptPupil>> SqliteRegister::pupils() {
    Statement select(*connection_, "SELECT Pupil_ID, PupilName FROM Pupils ORDER BY PupilName_folded");
    return rows_of(select, [](const Statement& row) {
        return KeptPupil{row.whole(0), as_text(row.value(1, FieldType::Text))};
    });
}

Result<std::int64_t> SqliteRegister::count_results() {
    Statement count(*connection_, "SELECT count(*) FROM Hall_of_Fame");
    if (count.step() != Step::Row) return count.failure();
    return count.whole(0);
}

Result<std::vector<KeptResult>> SqliteRegister::results_after(std::int64_t row, std::int64_t at_most) {
    Statement select(*connection_, "SELECT " + std::string(kResultFields) +
                                       " FROM Hall_of_Fame WHERE rowid > ? ORDER BY rowid LIMIT ?");
    select.bind(row);
    select.bind(at_most);
    return rows_of(select, result_in);
}

Result<Change> SqliteRegister::apply(const Change& change, const Progress& progress) {
    Transaction transaction(*connection_);
    if (const auto failure = transaction.begin()) return *failure;
    Applying applying(*connection_, change, progress);
    if (const auto failure = applying.all()) return *failure;
    if (const auto failure = transaction.commit()) return *failure;
    return applying.take_reverse();
}

}  // namespace marrowfen
