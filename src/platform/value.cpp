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

}  // namespace

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
