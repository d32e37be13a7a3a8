#include "platform/text/letters.h"

#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <optional>

namespace marrowfen {

namespace {

/// Takes the next letter off the text. nullopt: its bytes are not UTF-8, and one of them was taken off.
std::optional<utf8proc_int32_t> take_letter(std::string_view& text) {
    utf8proc_int32_t letter = 0;
    const auto length = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                         static_cast<utf8proc_ssize_t>(text.size()), &letter);
    text.remove_prefix(length > 0 ? static_cast<std::size_t>(length) : 1);
    return length > 0 ? std::optional(letter) : std::nullopt;
}

void append(std::string& text, utf8proc_int32_t letter) {
    std::array<utf8proc_uint8_t, 4> bytes{};
    const auto length = utf8proc_encode_char(letter, bytes.data());
    text.append(reinterpret_cast<const char*>(bytes.data()), static_cast<std::size_t>(length));
}

enum class Look : std::uint8_t { Letter, Mark, Blank, Nothing };

Look look_of(utf8proc_int32_t letter) {
    constexpr utf8proc_int32_t kHangulFiller = 0x3164;
    constexpr utf8proc_int32_t kBraillePatternBlank = 0x2800;
    if (letter == kHangulFiller || letter == kBraillePatternBlank) return Look::Blank;
    switch (utf8proc_category(letter)) {
        case UTF8PROC_CATEGORY_ZS:
        case UTF8PROC_CATEGORY_ZL:
        case UTF8PROC_CATEGORY_ZP:
            return Look::Blank;
        case UTF8PROC_CATEGORY_CC:
            return letter == '\t' || letter == '\n' || letter == '\r' ? Look::Blank : Look::Nothing;
        case UTF8PROC_CATEGORY_CF:
        case UTF8PROC_CATEGORY_MN:
        case UTF8PROC_CATEGORY_ME:
            return Look::Mark;  // joins or changes letters, and is nothing alone
        case UTF8PROC_CATEGORY_CN:
        case UTF8PROC_CATEGORY_CS:
            return Look::Nothing;
        default:
            return Look::Letter;
    }
}

/// The bytes 0x80 to 0x9F of Western Windows; a byte that means nothing there shows as a question mark.
constexpr std::array<utf8proc_int32_t, 32> kWindowsLetters{
    0x20AC, '?',    0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, '?',    0x017D, '?',    '?',    0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, '?',    0x017E, 0x0178};

std::string from_windows(std::string_view bytes) {
    constexpr unsigned char kFirst = 0x80;
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        const bool special = byte >= kFirst && byte < kFirst + kWindowsLetters.size();
        append(text, special ? kWindowsLetters.at(byte - kFirst) : byte);
    }
    return text;
}

std::string from_utf16(std::string_view bytes, bool low_byte_first) {
    constexpr utf8proc_int32_t kHighHalf = 0xD800;
    constexpr utf8proc_int32_t kLowHalf = 0xDC00;
    constexpr utf8proc_int32_t kAfterHalves = 0xE000;
    constexpr int kHalfBits = 10;
    const auto unit_at = [&](std::size_t at) {
        const auto first = static_cast<unsigned char>(bytes[at]);
        const auto second = static_cast<unsigned char>(bytes[at + 1]);
        return low_byte_first ? first | second << 8 : second | first << 8;
    };
    std::string text;
    for (std::size_t at = 2; at + 1 < bytes.size(); at += 2) {
        utf8proc_int32_t letter = unit_at(at);
        if (letter >= kHighHalf && letter < kLowHalf && at + 3 < bytes.size()) {
            at += 2;
            letter = 0x10000 + ((letter - kHighHalf) << kHalfBits) + (unit_at(at) - kLowHalf);
        }
        append(text,
               (letter >= kHighHalf && letter < kAfterHalves) || !utf8proc_codepoint_valid(letter) ? '?' : letter);
    }
    return text;
}

}  // namespace

Unseen unseen_in(std::string_view text) {
    while (!text.empty()) {
        const auto letter = take_letter(text);
        if (!letter || *letter == 0) return Unseen::Bytes;
        if (*letter != '\t' && utf8proc_category(*letter) == UTF8PROC_CATEGORY_CC) return Unseen::Control;
    }
    return Unseen::Nothing;
}

std::string tidied(std::string_view name) {
    std::string text;
    bool blank_before = false;
    bool can_be_seen = false;
    while (!name.empty()) {
        const auto letter = take_letter(name);
        const Look look = letter ? look_of(*letter) : Look::Nothing;
        if (look == Look::Blank) blank_before = !text.empty();
        if (look == Look::Blank || look == Look::Nothing) continue;
        if (blank_before) text += ' ';
        blank_before = false;
        can_be_seen = can_be_seen || look == Look::Letter;
        append(text, *letter);
    }
    return can_be_seen ? text : std::string{};
}

std::size_t length_in_characters(std::string_view text) {
    constexpr auto goes_on = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; };
    return text.size() - static_cast<std::size_t>(std::ranges::count_if(text, goes_on));
}

std::string as_utf8(std::string bytes) {
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    if (bytes.starts_with(kMark)) bytes.erase(0, kMark.size());
    if (bytes.starts_with("\xFF\xFE")) return from_utf16(bytes, true);
    if (bytes.starts_with("\xFE\xFF")) return from_utf16(bytes, false);
    for (std::string_view rest = bytes; !rest.empty();) {
        if (!take_letter(rest)) return from_windows(bytes);
    }
    return bytes;
}

}  // namespace marrowfen
