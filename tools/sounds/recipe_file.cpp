#include "recipe_file.h"

#include <cmath>
#include <fstream>
#include <locale>
#include <sstream>
#include <utility>

#include "../failure.h"

namespace marrowfen {

RecipeLine::RecipeLine(std::string place, std::vector<std::string> words)
    : place_(std::move(place)), words_(std::move(words)) {}

const std::string& RecipeLine::word(std::size_t column) const {
    if (column >= words_.size()) refuse("column " + std::to_string(column + 1) + " is missing");
    return words_[column];
}

double RecipeLine::number(std::size_t column) const { return to_number(word(column)); }

double RecipeLine::number(std::size_t column, double low, double high) const {
    const double value = number(column);
    if (value < low || value > high) {
        std::ostringstream why;
        why << word(column) << " is not between " << low << " and " << high;
        refuse(why.str());
    }
    return value;
}

double RecipeLine::to_number(std::string_view text) const {
    std::istringstream in{std::string(text)};
    in.imbue(std::locale::classic());
    double value = 0;
    if (!(in >> value) || in.peek() != std::istringstream::traits_type::eof() || !std::isfinite(value)) {
        refuse(in_quotes(text) + " is not a number");
    }
    return value;
}

std::vector<double> RecipeLine::to_numbers(std::string_view text, char divider) const {
    std::vector<double> values;
    for (const std::string& part : cut(text, divider)) values.push_back(to_number(part));
    return values;
}

void RecipeLine::refuse(const std::string& why) const { throw Failure(place_ + ": " + why + "."); }

std::vector<RecipeLine> read_recipe(const std::filesystem::path& file) {
    std::ifstream in(file);
    if (!in) throw Failure("The recipe " + file.string() + " can't be opened.");
    std::vector<RecipeLine> lines;
    std::string text;
    for (int number = 1; std::getline(in, text); ++number) {
        std::istringstream rest(text.substr(0, text.find('#')));
        std::vector<std::string> words;
        for (std::string word; rest >> word;) words.push_back(word);
        if (!words.empty()) lines.emplace_back(file.string() + ", line " + std::to_string(number), std::move(words));
    }
    if (in.bad()) throw Failure("The recipe " + file.string() + " can't be read to its end.");
    return lines;
}

std::string in_quotes(std::string_view text) {
    std::string whole(1, '"');
    whole.append(text);
    return whole += '"';
}

std::vector<std::string> cut(std::string_view text, char divider) {
    std::vector<std::string> parts(1);
    for (const char letter : text) {
        if (letter == divider) {
            parts.emplace_back();
        } else {
            parts.back() += letter;
        }
    }
    return parts;
}

}  // namespace marrowfen
