#include "copies/comparison.h"

#include <algorithm>

#include "platform/sqlite/connection.h"
#include "platform/sqlite/schema.h"
#include "platform/sqlite/statement.h"
#include "platform/sqlite/store_check.h"

namespace marrowfen {

namespace {

constexpr std::chrono::seconds kPatience{5};

/// The fields of a table, each said to be the same in the rows `a` and `b`. A field may be Null in both.
std::string alike(const Source& source) {
    std::string terms = "a.rowid = b.rowid";
    for (const Field& field : source.fields) {
        const std::string name = in_brackets(field.name);
        terms.append(" AND a.").append(name).append(" IS b.").append(name);
    }
    return terms;
}

/// Counts rows of one store that the other one has not just so. Negative: they can't be read.
std::int64_t count_missing(Connection& connection, const Source& source, const std::string& in, const std::string& of) {
    const std::string table = in_brackets(source.name);
    Statement count(connection, "SELECT count(*) FROM " + of + "." + table + " AS a WHERE NOT EXISTS (SELECT 1 FROM " +
                                    in + "." + table + " AS b WHERE " + alike(source) + ")");
    return count.step() == Statement::Step::Row ? count.whole(0) : -1;
}

std::optional<std::vector<std::string>> names(Connection& connection, const std::string& query) {
    std::vector<std::string> found;
    Statement statement(connection, query + " ORDER BY a.PupilName_folded");
    auto step = statement.step();
    for (; step == Statement::Step::Row; step = statement.step()) found.push_back(statement.text(0));
    return step == Statement::Step::Done ? std::optional(std::move(found)) : std::nullopt;
}

std::string only_in(const std::string& one, const std::string& other) {
    return "SELECT a.PupilName FROM " + one + ".Pupils AS a WHERE a.Pupil_ID NOT IN (SELECT Pupil_ID FROM " + other +
           ".Pupils)";
}

std::string listed(const std::vector<std::string>& names) {
    constexpr std::size_t kNamed = 5;
    std::string text;
    for (std::size_t i = 0; i < std::min(names.size(), kNamed); ++i) text.append(i == 0 ? "" : ", ").append(names[i]);
    if (names.size() > kNamed) text += " and " + std::to_string(names.size() - kNamed) + " more";
    return text;
}

std::string counted(std::int64_t number, const std::string& thing) {
    return std::to_string(number) + " " + thing + (number == 1 ? "" : "s");
}

}  // namespace

bool Comparison::nothing() const {
    return pupils_lost.empty() && pupils_regained.empty() && pupils_renamed.empty() && results_lost == 0 &&
           results_regained == 0 && !other_words;
}

std::vector<std::string> Comparison::lines() const {
    std::vector<std::string> lines;
    const auto add = [&lines](const std::vector<std::string>& names, const std::string& what) {
        if (!names.empty()) lines.push_back(counted(std::ssize(names), "pupil") + " " + what + ": " + listed(names));
    };
    add(pupils_lost, "would go");
    add(pupils_regained, "would come back");
    add(pupils_renamed, "would get an earlier name");
    if (results_lost > 0) lines.push_back(counted(results_lost, "result") + " would go");
    if (results_regained > 0) lines.push_back(counted(results_regained, "result") + " would come back");
    if (other_words) lines.emplace_back("Words, sentences or games would be those of the copy");
    return lines;
}

Result<Comparison> compare(const std::filesystem::path& store, const std::filesystem::path& copy) {
    if (auto failure = check_copy(copy)) return StoreFailure{"the copy is not good: " + failure->reason};
    Connection connection(store, Connection::Mode::ReadOnly, kPatience);
    if (const auto& failure = connection.open_failure()) return *failure;
    Statement attach(connection, "ATTACH ? AS copy");
    attach.bind(Value{copy.string()});
    if (attach.step() == Statement::Step::Failed) return attach.failure();

    const StoreFailure unreadable{"what is there now can't be read to its end", Trouble::Damaged};
    Comparison result;
    auto lost = names(connection, only_in("main", "copy"));
    auto regained = names(connection, only_in("copy", "main"));
    auto renamed =
        names(connection,
              "SELECT a.PupilName FROM main.Pupils AS a JOIN copy.Pupils AS b ON a.Pupil_ID = b.Pupil_ID WHERE "
              "a.PupilName <> b.PupilName");
    if (!lost || !regained || !renamed) return unreadable;
    result.pupils_lost = std::move(*lost);
    result.pupils_regained = std::move(*regained);
    result.pupils_renamed = std::move(*renamed);
    for (const Source& source : sources()) {
        const bool results = source.name == "Hall_of_Fame";
        if (!results && source.kind != SourceKind::Content) continue;
        const auto only_now = count_missing(connection, source, "copy", "main");
        const auto only_then = count_missing(connection, source, "main", "copy");
        if (only_now < 0 || only_then < 0) return unreadable;
        if (results) {
            result.results_lost = only_now;
            result.results_regained = only_then;
        } else {
            result.other_words = result.other_words || only_now + only_then > 0;
        }
    }
    return result;
}

}  // namespace marrowfen
