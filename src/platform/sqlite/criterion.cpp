#include "platform/sqlite/criterion.h"

#include <charconv>

#include "platform/letter_case.h"
#include "platform/text/folding.h"

namespace marrowfen {

namespace {

bool is_blank(char c) { return c == ' ' || c == '\t'; }
bool is_digit(char c) { return c >= '0' && c <= '9'; }
bool in_a_name(char c) { return is_digit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; }

class Reader {
public:
    explicit Reader(std::string_view text) : rest_(text) {}

    void skip_blanks() {
        while (!rest_.empty() && is_blank(rest_.front())) rest_.remove_prefix(1);
    }
    [[nodiscard]] bool at_end() const { return rest_.empty(); }

    bool take(char wanted) {
        if (rest_.empty() || rest_.front() != wanted) return false;
        rest_.remove_prefix(1);
        return true;
    }

    /// Empty: there is none here.
    std::string_view take_name() {
        std::size_t length = 0;
        while (length < rest_.size() && in_a_name(rest_[length])) ++length;
        return take_first(length);
    }

    /// What follows the opening quote, to the closing one. A doubled quote is a quote of the text.
    std::optional<std::string> take_quoted() {
        std::string text;
        while (!rest_.empty()) {
            const char c = rest_.front();
            rest_.remove_prefix(1);
            if (c == '\'' && !take('\'')) return text;
            text += c;
        }
        return std::nullopt;
    }

    std::optional<std::int64_t> take_number() {
        std::int64_t number = 0;
        const auto [end, error] = std::from_chars(rest_.data(), rest_.data() + rest_.size(), number);
        if (error != std::errc{}) return std::nullopt;
        take_first(static_cast<std::size_t>(end - rest_.data()));
        if (!rest_.empty() && (in_a_name(rest_.front()) || rest_.front() == '.')) return std::nullopt;
        return number;
    }

private:
    std::string_view take_first(std::size_t length) {
        const std::string_view taken = rest_.substr(0, length);
        rest_.remove_prefix(length);
        return taken;
    }

    std::string_view rest_;
};

std::optional<Condition> read_condition(Reader& reader, const Source& source) {
    reader.skip_blanks();
    const Field* field = find_field(source, reader.take_name());
    reader.skip_blanks();
    if (field == nullptr || !reader.take('=')) return std::nullopt;
    reader.skip_blanks();
    const bool holds_text = field->type == FieldType::Text || field->type == FieldType::SearchedText;
    const bool holds_numbers = field->type == FieldType::Whole || field->type == FieldType::Flag;
    if (reader.take('\'')) {
        const auto text = reader.take_quoted();
        if (!text || !holds_text) return std::nullopt;
        return Condition{field, folded(*text)};
    }
    const auto number = reader.take_number();
    if (!number || !holds_numbers) return std::nullopt;
    return Condition{field, *number};
}

}  // namespace

std::optional<Criterion> parse_criterion(std::string_view text, const Source& source) {
    Reader reader(text);
    Criterion criterion;
    do {
        auto condition = read_condition(reader, source);
        if (!condition) return std::nullopt;
        criterion.push_back(std::move(*condition));
        reader.skip_blanks();
        if (reader.at_end()) return criterion;
    } while (same_name(reader.take_name(), "And"));
    return std::nullopt;
}

}  // namespace marrowfen
