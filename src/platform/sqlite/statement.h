#pragma once

#include <cstdint>
#include <string>

#include "platform/sqlite/connection.h"
#include "platform/sqlite/schema.h"

struct sqlite3_stmt;

namespace marrowfen {

/// One statement, from its text to its last row. It must not outlive the call that made it: while it stands on a row,
/// no other computer can write.
class Statement {
public:
    enum class Step : std::uint8_t { Row, Done, Failed };

    Statement(Connection& connection, const std::string& sql);
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    void bind(const Value& value);  ///< of the next parameter; a date or time is stored in its ISO form
    [[nodiscard]] Step step();      ///< a statement that could not be prepared or bound fails here
    [[nodiscard]] StoreFailure failure() const { return failure_; }

    [[nodiscard]] std::int64_t whole(int column) const;
    [[nodiscard]] std::string text(int column) const;  ///< not Null
    /// A date or time that is not written in the ISO form comes as the text that it is.
    [[nodiscard]] Value value(int column, FieldType type) const;

private:
    void note(int result);

    Connection& connection_;
    sqlite3_stmt* handle_ = nullptr;
    int bound_ = 0;
    bool failed_ = false;
    StoreFailure failure_;
};

}  // namespace marrowfen
