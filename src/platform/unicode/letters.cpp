#include "platform/letters.h"

#include <utf8proc.h>

#include <array>
#include <optional>

namespace marrowfen {

namespace {

using Character = utf8proc_int32_t;

/// Takes the first character off a text. Bytes that are no UTF-8 are passed over one by one.
std::optional<Character> take(std::string_view& text) {
    while (!text.empty()) {
        Character character = 0;
        const auto length = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                             static_cast<utf8proc_ssize_t>(text.size()), &character);
        text.remove_prefix(length > 0 ? static_cast<std::size_t>(length) : 1);
        if (length > 0) return character;
    }
    return std::nullopt;
}

/// Those that turn the direction of writing would turn the rest of a list with it.
bool controls(Character character) {
    switch (utf8proc_category(character)) {
        case UTF8PROC_CATEGORY_CC:
        case UTF8PROC_CATEGORY_ZL:
        case UTF8PROC_CATEGORY_ZP:
            return true;
        default:
            return (character >= 0x202A && character <= 0x202E) || (character >= 0x2066 && character <= 0x2069);
    }
}

bool leaves_ink(Character character) {
    constexpr Character kBlankBraille = 0x2800;
    const auto category = utf8proc_category(character);
    return category != UTF8PROC_CATEGORY_ZS && category != UTF8PROC_CATEGORY_CF && !controls(character) &&
           utf8proc_get_property(character)->ignorable == 0 && character != kBlankBraille;
}

}  // namespace

std::string fit_for_line(std::string_view text, std::size_t characters) {
    std::string kept;
    std::size_t whole = 0;  // bytes of it that end with a letter
    std::size_t count = 0;
    Character before = 0;
    utf8proc_int32_t state = 0;
    while (const auto character = take(text)) {
        if (controls(*character)) continue;
        if (count == 0 || utf8proc_grapheme_break_stateful(before, *character, &state)) whole = kept.size();
        if (++count > characters) {
            kept.resize(whole);
            return kept;
        }
        constexpr std::size_t kLongest = 4;
        std::array<utf8proc_uint8_t, kLongest> bytes{};
        const auto length = utf8proc_encode_char(*character, bytes.data());
        kept.append(bytes.begin(), bytes.begin() + length);
        before = *character;
    }
    return kept;
}

bool can_be_seen(std::string_view text) {
    while (const auto character = take(text)) {
        if (leaves_ink(*character)) return true;
    }
    return false;
}

}  // namespace marrowfen
