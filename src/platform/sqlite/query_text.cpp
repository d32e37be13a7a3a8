#include "platform/sqlite/query_text.h"

namespace marrowfen {

namespace {

std::string compared(const Field& field, SourceKind kind) {
    std::string name = in_brackets(field.name);
    switch (field.type) {
        case FieldType::SearchedText:
            if (kind != SourceKind::Query) return in_brackets(companion_of(field));
            [[fallthrough]];
        case FieldType::Text:
            return std::string(kFoldFunction) + "(" + name + ")";
        default:
            return name;
    }
}

/// Nameless parameters are numbered in the order of the text, so that is the order in which values are bound.
std::string fits(const Source& source, const Wanted& wanted) {
    if (!wanted) return "0";
    std::string text;
    for (const Condition& condition : *wanted) {
        text += (text.empty() ? "" : " AND ") + compared(*condition.field, source.kind) + " = ?";
    }
    return text.empty() ? "1" : text;
}

/// A view brings its own order.
std::string in_order(const Source& source) { return source.kind == SourceKind::Query ? "" : " ORDER BY rowid"; }

}  // namespace

std::string select_text(const Source& source, const Wanted& wanted) {
    std::string text = source.kind == SourceKind::Query ? "SELECT NULL" : "SELECT rowid";
    for (const Field& field : source.fields) text += ", " + in_brackets(field.name);
    return text + " FROM " + in_brackets(source.name) + " WHERE " + fits(source, wanted) + in_order(source) +
           " LIMIT ? OFFSET ?";
}

std::string comparison_text(const Source& source, const Wanted& one, const Wanted& other) {
    return "SELECT " + fits(source, one) + ", " + fits(source, other) + " FROM " + in_brackets(source.name) +
           in_order(source);
}

std::string insert_text(const Source& source) {
    std::string names;
    std::string values;
    const auto add = [&](const std::string& name) {
        names += (names.empty() ? "" : ", ") + in_brackets(name);
        values += values.empty() ? "?" : ", ?";
    };
    for (const Field& field : source.fields) add(field.name);
    for (const Field& field : source.fields) {
        if (field.type == FieldType::SearchedText) add(companion_of(field));
    }
    return "INSERT INTO " + in_brackets(source.name) + " (" + names + ") VALUES (" + values + ")";
}

std::string delete_text(const Source& source) { return "DELETE FROM " + in_brackets(source.name) + " WHERE rowid = ?"; }

}  // namespace marrowfen
