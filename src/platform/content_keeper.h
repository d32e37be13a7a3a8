#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/store.h"

namespace marrowfen {

/// Whose words, sentences or games a table holds. What a teacher made is left alone when the program is renewed.
enum class Maker : std::uint8_t { Marrowfen, Teacher };

/// A row with a value for every field, in the order of the table's fields.
using Values = std::vector<Value>;

/// The tables that come with the program and that a teacher may replace.
class ContentKeeper {
public:
    virtual ~ContentKeeper() = default;
    [[nodiscard]] virtual Result<Maker> maker_of(std::string_view table) = 0;
    [[nodiscard]] virtual Result<std::vector<Values>> rows_of(std::string_view table) = 0;
    /// All of it happens, or nothing. The rows must be right: nobody looks at them any more.
    [[nodiscard]] virtual std::optional<StoreFailure> replace(std::string_view table, const std::vector<Values>& rows,
                                                              Maker maker) = 0;
};

}  // namespace marrowfen
