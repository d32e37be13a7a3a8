#include "platform/text/letters.h"

#include <utf8proc.h>

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

/// Those that turn the direction of writing would turn the rest of a list with it.
bool controls(utf8proc_int32_t letter) {
    constexpr auto within = [](utf8proc_int32_t each, utf8proc_int32_t first, utf8proc_int32_t last) {
        return each >= first && each <= last;
    };
    switch (utf8proc_category(letter)) {
        case UTF8PROC_CATEGORY_CC:
        case UTF8PROC_CATEGORY_ZL:
        case UTF8PROC_CATEGORY_ZP:
            return true;
        default:
            return within(letter, 0x202A, 0x202E) || within(letter, 0x2066, 0x2069);
    }
}

enum class Look : std::uint8_t { Letter, Mark, Blank, Nothing };

Look look_of(utf8proc_int32_t letter) {
    constexpr utf8proc_int32_t kBraillePatternBlank = 0x2800;
    if (letter == '\t' || letter == '\n' || letter == '\r' || letter == kBraillePatternBlank) return Look::Blank;
    switch (utf8proc_category(letter)) {
        case UTF8PROC_CATEGORY_ZS:
        case UTF8PROC_CATEGORY_ZL:
        case UTF8PROC_CATEGORY_ZP:
            return Look::Blank;
        case UTF8PROC_CATEGORY_CF:
        case UTF8PROC_CATEGORY_MN:
        case UTF8PROC_CATEGORY_ME:
            return controls(letter) ? Look::Nothing : Look::Mark;  // joins or changes letters, and is nothing alone
        case UTF8PROC_CATEGORY_CC:
        case UTF8PROC_CATEGORY_CN:
        case UTF8PROC_CATEGORY_CS:
            return Look::Nothing;
        default:  // the Hangul fillers are letters to their category
            return utf8proc_get_property(letter)->ignorable != 0 ? Look::Blank : Look::Letter;
    }
}

/// Goes through a text and tells where a reader sees the next letter begin.
class LetterCount {
public:
    /// Whether this character begins one.
    bool begins(utf8proc_int32_t character) {
        const bool next = count_ == 0 || utf8proc_grapheme_break_stateful(before_, character, &state_);
        if (next) ++count_;
        before_ = character;
        return next;
    }
    [[nodiscard]] std::size_t count() const { return count_; }

private:
    std::size_t count_ = 0;
    utf8proc_int32_t before_ = 0;
    utf8proc_int32_t state_ = 0;
};

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
    if (!can_be_seen(name)) return {};
    std::string text;
    bool blank_before = false;
    while (!name.empty()) {
        const auto letter = take_letter(name);
        const Look look = letter ? look_of(*letter) : Look::Nothing;
        if (look == Look::Blank) blank_before = !text.empty();
        if (!letter || look == Look::Blank || look == Look::Nothing) continue;
        if (blank_before) text += ' ';
        blank_before = false;
        append(text, *letter);
    }
    return text;
}

bool can_be_seen(std::string_view text) {
    while (!text.empty()) {
        const auto letter = take_letter(text);
        if (letter && look_of(*letter) == Look::Letter) return true;
    }
    return false;
}

std::string fit_for_line(std::string_view text, std::size_t letters) {
    std::string kept;
    LetterCount seen;
    while (!text.empty()) {
        const auto letter = take_letter(text);
        if (!letter || controls(*letter)) continue;
        if (seen.begins(*letter) && seen.count() > letters) break;
        append(kept, *letter);
    }
    return kept;
}

std::size_t length_in_letters(std::string_view text) {
    LetterCount seen;
    while (!text.empty()) {
        if (const auto letter = take_letter(text)) seen.begins(*letter);
    }
    return seen.count();
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
