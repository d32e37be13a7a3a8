#include "platform/value.h"

#include <charconv>
#include <limits>

#include "platform/match.h"

namespace marrowfen {

namespace {

std::string padded(std::int64_t number, std::size_t digits) {
    std::string text = std::to_string(number);
    return text.size() < digits ? std::string(digits - text.size(), '0') + text : text;
}

/// The numbers of a text such as "2026-03-09" or "09:05:00", which is as long as that and has the same mark between.
struct Parts {
    int first = 0;
    unsigned second = 0;
    unsigned third = 0;
};

template <class Number>
bool read_digits(std::string_view text, Number& number) {
    for (const char c : text) {
        if (c < '0' || c > '9') return false;
    }
    return std::from_chars(text.data(), text.data() + text.size(), number).ec == std::errc{};
}

std::optional<Parts> parts_of(std::string_view text, std::size_t first_length, char mark) {
    constexpr std::size_t kTwo = 2;
    const std::size_t second = first_length + 1;
    const std::size_t third = second + kTwo + 1;
    Parts parts;
    if (text.size() != third + kTwo || text[first_length] != mark || text[third - 1] != mark) return std::nullopt;
    const bool read = read_digits(text.substr(0, first_length), parts.first) &&
                      read_digits(text.substr(second, kTwo), parts.second) &&
                      read_digits(text.substr(third, kTwo), parts.third);
    return read ? std::optional(parts) : std::nullopt;
}

}  // namespace

std::optional<std::chrono::year_month_day> date_in(std::string_view text) {
    constexpr std::size_t kYearLength = 4;
    const auto parts = parts_of(text, kYearLength, '-');
    if (!parts) return std::nullopt;
    const std::chrono::year_month_day date{std::chrono::year{parts->first}, std::chrono::month{parts->second},
                                           std::chrono::day{parts->third}};
    return date.ok() ? std::optional(date) : std::nullopt;
}

std::optional<std::chrono::seconds> time_in(std::string_view text) {
    constexpr std::size_t kHourLength = 2;
    constexpr int kHours = 24;
    constexpr unsigned kSixty = 60;
    const auto parts = parts_of(text, kHourLength, ':');
    if (!parts || parts->first >= kHours || parts->second >= kSixty || parts->third >= kSixty) return std::nullopt;
    return std::chrono::hours{parts->first} + std::chrono::minutes{parts->second} + std::chrono::seconds{parts->third};
}

std::string as_text(const Value& value) {
    return std::visit(Match{
                          [](std::monostate) { return std::string{}; },
                          [](std::int64_t number) { return std::to_string(number); },
                          [](const std::string& text) { return text; },
                          [](std::chrono::year_month_day date) {
                              return padded(static_cast<int>(date.year()), 4) + "-" +
                                     padded(static_cast<unsigned>(date.month()), 2) + "-" +
                                     padded(static_cast<unsigned>(date.day()), 2);
                          },
                          [](std::chrono::seconds time) {
                              const std::chrono::hh_mm_ss parts(time);
                              return padded(parts.hours().count(), 2) + ":" + padded(parts.minutes().count(), 2) + ":" +
                                     padded(parts.seconds().count(), 2);
                          },
                      },
                      value);
}

std::int16_t as_whole(const Value& value) {
    std::int64_t number = 0;
    if (const auto* whole = std::get_if<std::int64_t>(&value)) {
        number = *whole;
    } else if (const auto* text = std::get_if<std::string>(&value)) {
        std::from_chars(text->data(), text->data() + text->size(), number);
    }
    using Limits = std::numeric_limits<std::int16_t>;
    return number < Limits::min() || number > Limits::max() ? std::int16_t{0} : static_cast<std::int16_t>(number);
}

bool as_flag(const Value& value) { return as_whole(value) != 0; }

}  // namespace marrowfen
