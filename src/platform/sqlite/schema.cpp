#include "platform/sqlite/schema.h"

#include <algorithm>
#include <array>

#include "platform/letter_case.h"

namespace marrowfen {

namespace {

using enum FieldType;
using enum SourceKind;

constexpr const char* kNeeded = "NOT NULL";
constexpr const char* kUnique = "NOT NULL UNIQUE";

/// An index of every table holds all its fields over again. So a byte that goes wrong in a row no longer fits the
/// index, which the library's own check finds, and what was lost in the one can be read in the other.
std::string whole_index_of(const Source& source) { return source.name + "_whole"; }

/// In a timed game the points are the share of the time that was left, in a typing test the seconds that it took.
/// The rowid that ends every index puts the earlier of two equal results first.
constexpr const char* kBestFirst = "GameID, TimeLimit, CASE TimeLimit WHEN 0 THEN Points ELSE -Points END";

Source pupils() {
    return {.name = "Pupils",
            .kind = Lasting,
            .fields = {{"Pupil_ID", Whole,
                        "PRIMARY KEY AUTOINCREMENT "
                        "CONSTRAINT [all 32767 pupil numbers have been used] CHECK (Pupil_ID BETWEEN 1 AND 32767)"},
                       {"PupilName", SearchedText,
                        "NOT NULL CONSTRAINT [a name has 1 to 50 letters] CHECK (length(PupilName) BETWEEN 1 AND 50)"}},
            .numbered = "Pupil_ID",
            .taken = "there is a pupil of that name already"};
}

Source results() {
    return {.name = "Hall_of_Fame",
            .kind = Lasting,
            .fields = {{"Pupil_id", Whole, kNeeded},
                       {"TimeTaken", Text, kNeeded},
                       {"TheDate", Date},
                       {"TimeLimit", Whole, kNeeded},
                       {"Points", Whole, kNeeded},
                       {"GameID", Whole, kNeeded},
                       {"timeplayed", Time}},
            .indexes = {{"Hall_of_Fame_best", kBestFirst}}};
}

/// A game with its number below zero was left out of the list by a teacher, and has its place there still.
Source templates() {
    Source source{.name = "Templates",
                  .fields = {{"Template_ID", Whole, kUnique},
                             {"GameNumber", Whole, kUnique},
                             {"GameName", Text, kUnique},
                             {"Panels", Whole, kNeeded},
                             {"dragtype", Text, kNeeded},
                             {"droptype", Text},
                             {"backgroundletters", Flag},
                             {"Split", Flag},
                             {"background", Flag}}};
    constexpr int kKeys = 36;
    for (int key = 1; key <= kKeys; ++key) source.fields.push_back({"pic" + std::to_string(key), Text});
    return source;
}

Source words(const std::string& name) {
    return {.name = name,
            .fields = {{"id", Whole, kNeeded}, {"word", SearchedText, kNeeded}, {"end", Text, kNeeded}},
            .indexes = {{name + "_id", "id"}}};
}

Source sentences(const std::string& name) {
    return {.name = name,
            .fields = {{"sen_id", Whole, kUnique},
                       {"Sen", Text, kNeeded},
                       {"Verb", Text, kNeeded},
                       {"noun", Text, kNeeded},
                       {"adjective", Text, kNeeded}}};
}

/// Tells a build whether the content in the file is what it would write.
Source built() { return {.name = "Built", .fields = {{"fingerprint", Text, kNeeded}}}; }

/// What a letter is sorted as: nothing for the accents that folding has taken apart, and the plain letter of those that
/// are not made of two. In SQL alone, so that any program can read the view.
std::string by_base_letter(const std::string& folded) {
    struct Sorted {
        const char* letter;
        const char* as;
    };
    constexpr std::array kAs{Sorted{"\u0300", ""}, Sorted{"\u0301", ""}, Sorted{"\u0302", ""}, Sorted{"\u0303", ""},
                             Sorted{"\u0304", ""}, Sorted{"\u0306", ""}, Sorted{"\u0307", ""}, Sorted{"\u0308", ""},
                             Sorted{"\u030A", ""}, Sorted{"\u030B", ""}, Sorted{"\u030C", ""}, Sorted{"\u031B", ""},
                             Sorted{"\u0323", ""}, Sorted{"\u0326", ""}, Sorted{"\u0327", ""}, Sorted{"\u0328", ""},
                             Sorted{"ł", "l"},     Sorted{"ø", "o"},     Sorted{"đ", "d"},     Sorted{"ħ", "h"},
                             Sorted{"ı", "i"},     Sorted{"ŧ", "t"},     Sorted{"ð", "d"},     Sorted{"þ", "th"},
                             Sorted{"æ", "ae"},    Sorted{"œ", "oe"}};
    std::string text = folded;
    for (const auto& [letter, as] : kAs) {
        text.insert(0, "replace(").append(", '").append(letter).append("', '").append(as).append("')");
    }
    return text;
}

Source sorted_pupils() {
    return {.name = "SortedPupils",
            .kind = Query,
            .fields = {{"Pupilname", Text}},
            .query = "SELECT PupilName AS Pupilname FROM Pupils ORDER BY " + by_base_letter("PupilName_folded") +
                     ", PupilName_folded"};
}

Source sorted_games() {
    return {.name = "sortedgames",
            .kind = Query,
            .fields = {{"GameNumber"}, {"gamename", Text}, {"GameType"}},
            .query =
                "SELECT GameNumber, GameName AS gamename, Template_ID AS GameType FROM Templates "
                "WHERE GameNumber > 0 ORDER BY GameNumber"};
}

Source best_times() {
    return {.name = "besttimes",
            .kind = Query,
            .fields = {{"Pupil_id"}, {"TimeTaken", Text}, {"Points"}, {"TheDate", Date}, {"GameID"}, {"timelimit"}},
            .query =
                "SELECT Pupil_id, TimeTaken, Points, TheDate, GameID, TimeLimit AS timelimit FROM Hall_of_Fame "
                "ORDER BY " +
                std::string(kBestFirst) + ", rowid"};
}

std::string declared(FieldType type) {
    switch (type) {
        case Whole:
            return "INTEGER";
        case Flag:
            return "BOOLEAN";
        case Text:
        case SearchedText:
            return "TEXT";
        case Date:
            return "DATE";
        case Time:
            return "TIME";
    }
    return {};
}

void add_index(std::vector<std::string>& statements, const Source& source, const std::string& kind,
               const Index& index) {
    const std::string name = in_brackets(index.name);
    statements.push_back("DROP INDEX IF EXISTS " + name);
    statements.push_back("CREATE " + kind + " " + name + " ON " + in_brackets(source.name) + " (" + index.terms + ")");
}

}  // namespace

const std::vector<Source>& sources() {
    static const std::vector<Source> kSources{
        pupils(),
        results(),
        templates(),
        words("Words_Keystage1"),
        words("Words_Keystage2"),
        sentences("Sentences_Keystage1"),
        sentences("Sentences_Keystage2"),
        built(),
        sorted_pupils(),
        sorted_games(),
        best_times(),
    };
    return kSources;
}

const Source* find_source(std::string_view name) {
    const auto& all = sources();
    const auto found = std::ranges::find_if(all, [name](const Source& source) { return same_name(source.name, name); });
    return found == all.end() ? nullptr : &*found;
}

const Field* find_field(const Source& source, std::string_view name) {
    const auto& all = source.fields;
    const auto found = std::ranges::find_if(all, [name](const Field& field) { return same_name(field.name, name); });
    return found == all.end() ? nullptr : &*found;
}

std::string in_brackets(std::string_view name) { return std::string("[").append(name).append("]"); }

std::string companion_of(const Field& searched_text) { return searched_text.name + "_folded"; }

std::vector<std::string> creation_of(const Source& source) {
    const std::string name = in_brackets(source.name);
    if (source.kind == Query) return {"CREATE VIEW " + name + " AS " + source.query};
    std::string columns;
    const auto add_column = [&columns](const std::string& column) {
        columns += (columns.empty() ? "" : ", ") + column;
    };
    for (const Field& field : source.fields) {
        add_column(in_brackets(field.name) + " " + declared(field.type) + (field.rule.empty() ? "" : " " + field.rule));
        if (field.type == SearchedText) add_column(in_brackets(companion_of(field)) + " TEXT NOT NULL");
    }
    std::vector<std::string> statements{"CREATE TABLE IF NOT EXISTS " + name + " (" + columns + ")"};
    for (const Field& field : source.fields) {
        if (field.type != SearchedText) continue;
        add_index(statements, source, source.taken.empty() ? "INDEX" : "UNIQUE INDEX",
                  {source.name + "_" + field.name, in_brackets(companion_of(field))});
    }
    for (const Index& index : source.indexes) add_index(statements, source, "INDEX", index);
    std::string fields;
    for (const Field& field : source.fields) fields += (fields.empty() ? "" : ", ") + in_brackets(field.name);
    add_index(statements, source, "INDEX", {whole_index_of(source), fields});
    return statements;
}

}  // namespace marrowfen
