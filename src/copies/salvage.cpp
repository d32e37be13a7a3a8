#include "copies/salvage.h"

#include <algorithm>
#include <fstream>
#include <functional>
#include <map>
#include <set>
#include <system_error>

#include "copies/carving.h"
#include "platform/sqlite/connection.h"
#include "platform/sqlite/file_head.h"
#include "platform/sqlite/journal.h"
#include "platform/sqlite/new_row.h"
#include "platform/sqlite/schema.h"
#include "platform/sqlite/statement.h"
#include "platform/sqlite/store_check.h"
#include "platform/sqlite/structure.h"

namespace marrowfen {

namespace {

namespace fs = std::filesystem;
using Values = std::vector<Value>;

constexpr std::chrono::seconds kPatience{5};
constexpr std::int64_t kHighestWhole = 32767;

const Source& pupils() { return *find_source("Pupils"); }
const Source& results() { return *find_source("Hall_of_Fame"); }

template <class T>
Value read_or_nothing(const std::optional<T>& read) {
    return read ? Value{*read} : Value{};
}

/// A date or time that can't be right is left out; with anything else that can't be, the row is none of the table.
std::optional<Values> as_row_of(const Source& source, Values values) {
    if (values.size() != source.fields.size()) return std::nullopt;
    for (std::size_t i = 0; i < values.size(); ++i) {
        Value& value = values[i];
        const auto* text = std::get_if<std::string>(&value);
        switch (source.fields[i].type) {
            case FieldType::Date:
                if (text) value = read_or_nothing(date_in(*text));
                if (!std::holds_alternative<std::chrono::year_month_day>(value)) value = {};
                break;
            case FieldType::Time:
                if (text) value = read_or_nothing(time_in(*text));
                if (!std::holds_alternative<std::chrono::seconds>(value)) value = {};
                break;
            case FieldType::Whole:
            case FieldType::Flag:
                if (const auto* number = std::get_if<std::int64_t>(&value);
                    number == nullptr || *number < 0 || *number > kHighestWhole) {
                    return std::nullopt;
                }
                break;
            case FieldType::Text:
            case FieldType::SearchedText:
                if (text == nullptr || text->empty()) return std::nullopt;
                break;
        }
    }
    return values;
}

/// The rows of a table by their number, each as it was found first.
class Finds {
public:
    explicit Finds(const Source& source) : source_(source) {}

    void add(std::int64_t rowid, Values values) {
        auto row = rowid > 0 ? as_row_of(source_, std::move(values)) : std::nullopt;
        if (!row) return;
        const auto [found, is_new] = rows_.try_emplace(rowid, *row);
        if (!is_new && found->second != *row) in_two_forms_.insert(rowid);
    }
    [[nodiscard]] const Source& source() const { return source_; }
    [[nodiscard]] const std::map<std::int64_t, Values>& rows() const { return rows_; }
    [[nodiscard]] std::int64_t in_two_forms() const { return std::ssize(in_two_forms_); }

private:
    const Source& source_;
    std::map<std::int64_t, Values> rows_;
    std::set<std::int64_t> in_two_forms_;
};

/// Reads one way through a table or its index until that breaks off. False: it did.
bool walk(Connection& connection, const Source& source, const std::string& how,
          const std::function<void(std::int64_t, Values)>& found) {
    std::string fields;
    for (const Field& field : source.fields) fields.append(", ").append(in_brackets(field.name));
    Statement statement(connection, "SELECT rowid" + fields + " FROM " + in_brackets(source.name) + " " + how);
    auto step = statement.step();
    for (; step == Statement::Step::Row; step = statement.step()) {
        Values values;
        for (const Field& field : source.fields) {
            values.push_back(statement.value(static_cast<int>(values.size()) + 1, field.type));
        }
        found(statement.whole(0), std::move(values));
    }
    return step == Statement::Step::Done;
}

/// From both ends of the table, then from both ends of the index that tells it all over again. False: at some place it
/// could not be walked through.
bool walk_all(Connection& connection, Finds& finds) {
    const std::string by_rowid = "NOT INDEXED ORDER BY rowid";
    const std::string by_index = "INDEXED BY " + in_brackets(finds.source().name + "_whole") + " ORDER BY " +
                                 in_brackets(finds.source().fields.front().name);
    const auto add = [&finds](std::int64_t rowid, Values values) { finds.add(rowid, std::move(values)); };
    bool whole = true;
    for (const std::string& order : {by_rowid, by_index}) {
        for (const char* direction : {" ASC", " DESC"}) {
            whole = walk(connection, finds.source(), order + direction, add) && whole;
        }
    }
    return whole;
}

/// What a carved row is, its values tell: no two tables of the store have the same kinds in the same order.
void sort_in(CarvedRow row, Finds& names, Finds& games) {
    Values& values = row.values;
    const bool indexed = row.from == CarvedRow::From::Index;
    if (indexed && !values.empty()) {
        const auto* rowid = std::get_if<std::int64_t>(&values.back());
        row.rowid = rowid == nullptr ? 0 : *rowid;
        values.pop_back();
    }
    if (values.size() == results().fields.size()) {
        const auto* taken = std::get_if<std::string>(&values[1]);
        if (taken != nullptr && taken->find(':') != std::string::npos) games.add(row.rowid, std::move(values));
        return;
    }
    // A pupil's number stands beside the row, and behind the name comes its folded form; the index has neither so.
    if (!indexed && values.size() == 3 && std::holds_alternative<std::monostate>(values[0]) &&
        std::holds_alternative<std::string>(values[2])) {
        names.add(row.rowid, {row.rowid, values[1]});
    } else if (indexed && values.size() == 2 && values[0] == Value{row.rowid}) {
        names.add(row.rowid, std::move(values));
    }
}

/// Whether a table can be taken over as it stands; if so, it is in the new store afterwards.
bool take_over(Connection& from, const Source& source, Connection& into) {
    std::vector<Values> rows;
    const auto add = [&rows](std::int64_t, Values values) { rows.push_back(std::move(values)); };
    Statement check(from, "PRAGMA integrity_check(" + in_brackets(source.name) + ")");
    if (check.step() != Statement::Step::Row || check.text(0) != "ok") return false;
    if (!walk(from, source, "NOT INDEXED ORDER BY rowid", add) || rows.empty()) return false;
    return std::ranges::none_of(rows, [&](const Values& row) { return insert_row(into, source, row).has_value(); });
}

/// From one store or from the other, but not mixed: they may be of different years.
bool take_over_games(const fs::path& from, Connection& into) {
    Connection connection(from, Connection::Mode::ReadOnly, kPatience);
    if (connection.open_failure() || check_identity(connection)) return false;
    const auto is_content = [](const Source& source) { return source.kind == SourceKind::Content; };
    for (const Source& source : sources()) {
        if (!is_content(source) || take_over(connection, source, into)) continue;
        for (const Source& other : sources()) {
            if (is_content(other)) (void)into.run("DELETE FROM " + in_brackets(other.name));
        }
        return false;
    }
    return true;
}

/// The damaged file and the journal that belongs to it, elsewhere: to open a file that has a journal changes it.
class Duplicate {
public:
    Duplicate(const fs::path& file, const fs::path& name) : name_(name) {
        remove();
        std::error_code error;
        fs::copy_file(file, name_, error);
        if (error) failure_ = {"it can't be read or copied: " + error.message()};
        FileHead head{};
        std::ifstream(file, std::ios::binary).read(reinterpret_cast<char*>(head.data()), kFileHeadLength);
        if (fs::exists(journal_of(file), error) && journal_belongs(file, number_at(head, kChangesAt))) {
            fs::copy_file(journal_of(file), journal_of(name_), error);
        }
    }
    ~Duplicate() { remove(); }
    Duplicate(const Duplicate&) = delete;
    Duplicate& operator=(const Duplicate&) = delete;
    [[nodiscard]] const std::optional<StoreFailure>& failure() const { return failure_; }

private:
    void remove() const {
        std::error_code ignored;
        fs::remove(name_, ignored);
        remove_journal(name_);
    }
    fs::path name_;
    std::optional<StoreFailure> failure_;
};

bool search(const fs::path& file, Finds& names, Finds& games) {
    {
        Connection connection(file, Connection::Mode::Existing, kPatience);
        // Where the description of one table is damaged, the others can still be read.
        const bool opened = !connection.open_failure() && !connection.run("PRAGMA writable_schema = ON");
        const bool walked = opened && walk_all(connection, names) && walk_all(connection, games);
        if (walked && !check_integrity(connection)) return true;
    }
    carve(file, [&](CarvedRow row) { sort_in(std::move(row), names, games); });
    return false;
}

/// No number is given again that a result still names.
std::optional<StoreFailure> reserve_numbers(Connection& store) {
    const std::string highest =
        "(SELECT max(ifnull(max(Pupil_id), 0), ifnull((SELECT max(Pupil_ID) FROM Pupils), 0)) "
        "FROM Hall_of_Fame)";
    if (auto failure = store.run("DELETE FROM sqlite_sequence WHERE name = 'Pupils'")) return failure;
    return store.run("INSERT INTO sqlite_sequence (name, seq) SELECT 'Pupils', " + highest);
}

std::optional<StoreFailure> write(Connection& store, const Finds& names, const Finds& games, Salvaged& told) {
    for (const Finds* finds : {&names, &games}) {
        auto& saved = finds == &names ? told.saved.pupils : told.saved.results;
        for (const auto& [rowid, values] : finds->rows()) {
            auto failure = insert_row(store, finds->source(), values);
            if (!failure) {
                ++saved;
            } else if (failure->trouble != Trouble::Refused) {
                return failure;
            }
        }
    }
    return reserve_numbers(store);
}

}  // namespace

Result<Salvaged> salvage(const fs::path& damaged, const fs::path& into, const std::optional<fs::path>& like) {
    std::error_code error;
    if (fs::exists(into, error)) return StoreFailure{into.string() + " is there already"};
    const fs::path searched = fs::path(into) += ".searched";
    const Duplicate duplicate(damaged, searched);
    if (const auto& failure = duplicate.failure()) return *failure;

    Salvaged told;
    Finds names(pupils());
    Finds games(results());
    told.walked = search(searched, names, games);
    told.in_two_forms = names.in_two_forms() + games.in_two_forms();
    std::optional<StoreFailure> failure;
    {
        Connection store(into, Connection::Mode::Create, kPatience);
        Transaction transaction(store);
        failure = store.open_failure();
        if (!failure) failure = store.prepare_to_write();
        if (!failure) failure = transaction.begin();
        if (!failure) failure = make_structure(store);
        if (!failure) told.has_games = take_over_games(searched, store) || (like && take_over_games(*like, store));
        if (!failure) failure = write(store, names, games, told);
        if (!failure) failure = transaction.commit();
        if (!failure) {
            Statement nameless(store,
                               "SELECT count(DISTINCT Pupil_id) FROM Hall_of_Fame WHERE Pupil_id NOT IN (SELECT "
                               "Pupil_ID FROM Pupils)");
            if (nameless.step() == Statement::Step::Row) told.without_a_name = nameless.whole(0);
        }
    }
    if (failure) {
        fs::remove(into, error);
        remove_journal(into);
        return *failure;
    }
    return told;
}

}  // namespace marrowfen
