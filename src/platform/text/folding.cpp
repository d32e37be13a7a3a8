#include "platform/text/folding.h"

#include <utf8proc.h>

#include <cstdlib>
#include <memory>
#include <new>

namespace marrowfen {

namespace {

struct Release {
    void operator()(utf8proc_uint8_t* text) const { std::free(text); }  // NOLINT: utf8proc takes it from malloc
};

}  // namespace

std::string folded(std::string_view text) {
    // Taken apart, an accented letter can be sorted as the plain one.
    constexpr auto kHow = static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_DECOMPOSE | UTF8PROC_CASEFOLD);
    std::string bytes(text);  // an empty view may have no address, which the library does not take
    utf8proc_uint8_t* result = nullptr;
    const auto length = utf8proc_map(reinterpret_cast<const utf8proc_uint8_t*>(bytes.data()),
                                     static_cast<utf8proc_ssize_t>(bytes.size()), &result, kHow);
    const std::unique_ptr<utf8proc_uint8_t, Release> owner(result);
    if (length == UTF8PROC_ERROR_NOMEM) throw std::bad_alloc();
    if (length < 0) return bytes;
    return {reinterpret_cast<const char*>(result), static_cast<std::size_t>(length)};
}

}  // namespace marrowfen
