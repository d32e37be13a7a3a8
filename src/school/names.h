#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "platform/register.h"

namespace marrowfen {

/// The names that a school has given, by the form in which they are compared: Zoë and ZOË are one name.
class GivenNames {
public:
    explicit GivenNames(const std::vector<KeptPupil>& pupils);
    [[nodiscard]] bool has(std::string_view name) const;
    /// False: it was there already.
    bool add(std::string_view name);

private:
    std::unordered_set<std::string> names_;
};

/// Why nobody can be called that, as the rest of a sentence; empty: the name is good. `name` is tidied.
[[nodiscard]] std::string fault_in_name(std::string_view name);
inline constexpr const char* kNameTaken = "there is a pupil of that name already";

}  // namespace marrowfen
