#include "replay/words.h"

#include <array>
#include <charconv>

#include "platform/match.h"

namespace marrowfen {

namespace {

constexpr std::string_view kDigits = "0123456789abcdef";

std::optional<std::string> unquoted(std::string_view word) {
    if (word.size() < 2 || word.front() != '"' || word.back() != '"') return std::nullopt;
    word = word.substr(1, word.size() - 2);
    std::string text;
    while (!word.empty()) {
        const char c = word.front();
        word.remove_prefix(1);
        if (c != '\\') {
            text += c;
            continue;
        }
        const bool is_code = word.starts_with('x');
        const std::size_t length = is_code ? 3 : 1;
        if (word.size() < length) return std::nullopt;
        unsigned code = static_cast<unsigned char>(word.front());
        if (is_code && std::from_chars(word.data() + 1, word.data() + length, code, 16).ec != std::errc{}) {
            return std::nullopt;
        }
        text += static_cast<char>(code);
        word.remove_prefix(length);
    }
    return text;
}

}  // namespace

std::string in_quotes(std::string_view text) {
    std::string word = "\"";
    for (const char c : text) {
        const auto code = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            word += {'\\', c};
        } else if (code < ' ') {
            word += {'\\', 'x', kDigits[code >> 4U], kDigits[code & 0xFU]};
        } else {
            word += c;
        }
    }
    return word + "\"";
}

std::string to_word(const Value& value) {
    return std::visit(Match{
                          [](std::monostate) { return std::string("-"); },
                          [](std::int64_t number) { return std::to_string(number); },
                          [](const std::string& text) { return in_quotes(text); },
                          [&](std::chrono::year_month_day) { return "d" + as_text(value); },
                          [](std::chrono::seconds time) { return "t" + std::to_string(time.count()); },
                      },
                      value);
}

std::optional<Value> to_value(std::string_view word) {
    if (word == "-") return Value{};
    if (word.starts_with('d')) {
        const auto date = date_in(word.substr(1));
        return date ? std::optional<Value>(*date) : std::nullopt;
    }
    if (word.starts_with('"')) {
        auto text = unquoted(word);
        return text ? std::optional<Value>(std::move(*text)) : std::nullopt;
    }
    if (word.starts_with('t')) {
        const auto seconds = to_number(word.substr(1));
        return seconds ? std::optional<Value>(std::chrono::seconds(*seconds)) : std::nullopt;
    }
    const auto number = to_number(word);
    return number ? std::optional<Value>(*number) : std::nullopt;
}

std::optional<std::int64_t> to_number(std::string_view word) {
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    return error == std::errc{} && end == word.data() + word.size() ? std::optional(number) : std::nullopt;
}

bool Words::at_end() {
    while (rest_.starts_with(' ')) rest_.remove_prefix(1);
    return rest_.empty();
}

std::string Words::take() {
    if (at_end()) return {};
    std::size_t length = 0;
    const bool is_text = rest_.starts_with('"');
    for (; length < rest_.size(); ++length) {
        if (is_text && rest_[length] == '\\') {
            ++length;
        } else if (is_text ? length > 0 && rest_[length] == '"' : rest_[length] == ' ') {
            break;
        }
    }
    length = std::min(rest_.size(), is_text ? length + 1 : length);
    std::string word(rest_.substr(0, length));
    rest_.remove_prefix(length);
    return word;
}

std::optional<std::string> Words::take_quoted() { return unquoted(take()); }

std::optional<std::int64_t> Words::take_number() { return to_number(take()); }

}  // namespace marrowfen
