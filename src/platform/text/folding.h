#pragma once

#include <string>
#include <string_view>

namespace marrowfen {

/// The form in which texts are compared: equal when they differ only in case, or in how an accent is encoded.
/// Text that is not UTF-8 is its own folded form.
[[nodiscard]] std::string folded(std::string_view text);

}  // namespace marrowfen
