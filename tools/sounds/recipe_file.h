#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace marrowfen {

/// One line of a recipe, cut into words at blanks and tabs. It knows where it stands, so that a slip is told
/// with file and line. Whatever can't be read throws Failure.
class RecipeLine {
public:
    RecipeLine(std::string place, std::vector<std::string> words);

    [[nodiscard]] std::size_t size() const { return words_.size(); }
    [[nodiscard]] const std::string& word(std::size_t column) const;
    [[nodiscard]] double number(std::size_t column) const;
    /// A number between `low` and `high`, both allowed.
    [[nodiscard]] double number(std::size_t column, double low, double high) const;

    [[nodiscard]] double to_number(std::string_view text) const;
    /// The numbers of a text such as "440>660>550".
    [[nodiscard]] std::vector<double> to_numbers(std::string_view text, char divider) const;

    [[noreturn]] void refuse(const std::string& why) const;

private:
    std::string place_;
    std::vector<std::string> words_;
};

/// The lines of a plain text table, without blank lines and without what follows a '#'.
[[nodiscard]] std::vector<RecipeLine> read_recipe(const std::filesystem::path& file);

/// The text between quotation marks.
[[nodiscard]] std::string in_quotes(std::string_view text);

[[nodiscard]] std::vector<std::string> cut(std::string_view text, char divider);

}  // namespace marrowfen
