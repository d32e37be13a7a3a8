#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// The one description of the data store. The tool that builds the file creates it from here, and the program reads
/// and checks it by the same description. The file itself is plain: any SQLite program can open, list and export it.
namespace marrowfen {

/// Stands in the head of the file, so that no other program's data is taken for ours: "Mrfn".
inline constexpr std::int32_t kApplicationId = 0x4D72666E;
/// Raised whenever a program of the version before could no longer work with the file.
inline constexpr std::int32_t kSchemaVersion = 1;

enum class FieldType : std::uint8_t {
    Whole,
    Flag,  ///< -1 and 0; Null counts as 0
    Text,
    SearchedText,  ///< has a companion column with its folded form, which is indexed
    Date,          ///< stored as YYYY-MM-DD
    Time,          ///< stored as HH:MM:SS
};

struct Field {
    std::string name;
    FieldType type = FieldType::Whole;
    std::string rule = {};  ///< of the column, in SQL. The name of a CHECK is the reason that a person is given.
};

struct Index {
    std::string name;
    std::string terms;
};

enum class SourceKind : std::uint8_t {
    Lasting,  ///< pupils and results: no build ever drops them
    Content,  ///< made anew when the content has changed
    Query,    ///< a view
};

struct Source {
    std::string name;
    SourceKind kind = SourceKind::Content;
    std::vector<Field> fields = {};
    std::string query = {};           ///< of a view
    std::vector<Index> indexes = {};  ///< of a table, beside those of its searched text
    std::string numbered = {};        ///< the field that the store assigns, if any
    std::string taken = {};           ///< not empty: searched text is unique, and this is the reason of a refusal
};

/// Every table first, then the views on them.
[[nodiscard]] const std::vector<Source>& sources();

/// Names of sources and fields are compared without regard to case. nullptr: there is none of that name.
[[nodiscard]] const Source* find_source(std::string_view name);
[[nodiscard]] const Field* find_field(const Source& source, std::string_view name);

[[nodiscard]] std::string in_brackets(std::string_view name);              ///< a name as SQL takes it, keywords too
[[nodiscard]] std::string companion_of(const Field& searched_text);        ///< the name of its column of folded text
[[nodiscard]] std::vector<std::string> creation_of(const Source& source);  ///< the statements; indexes are made anew

}  // namespace marrowfen
