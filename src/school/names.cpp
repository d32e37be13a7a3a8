#include "school/names.h"

#include "platform/text/folding.h"
#include "platform/text/letters.h"

namespace marrowfen {

GivenNames::GivenNames(const std::vector<KeptPupil>& pupils) {
    for (const KeptPupil& pupil : pupils) add(pupil.name);
}

bool GivenNames::has(std::string_view name) const { return names_.contains(folded(name)); }

bool GivenNames::add(std::string_view name) { return names_.insert(folded(name)).second; }

std::string fault_in_name(std::string_view name) {
    constexpr std::size_t kLongestName = 50;
    if (name.empty()) return "there is no name here";
    const auto length = length_in_letters(name);
    if (length <= kLongestName) return {};
    return "the name has " + std::to_string(length) + " letters, and " + std::to_string(kLongestName) + " fit";
}

}  // namespace marrowfen
