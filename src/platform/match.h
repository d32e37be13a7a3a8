#pragma once

namespace marrowfen {

/// The cases of a `std::visit`, one function each.
template <class... Cases>
struct Match : Cases... {
    using Cases::operator()...;
};
template <class... Cases>
Match(Cases...) -> Match<Cases...>;

}  // namespace marrowfen
