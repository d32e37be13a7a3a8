#include "cue_recipe.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

#include "../failure.h"
#include "finish.h"
#include "recipe_file.h"

namespace marrowfen {
namespace {

struct Range {
    double low, high;
};

struct Option {
    std::string_view name;
    double Layer::*value;
    Range range;
};

constexpr std::array kOptions{
    Option{"voices", &Layer::voices, {1, 100}}, Option{"rate", &Layer::rate, {0, 50}},
    Option{"spread", &Layer::spread, {0, 5}},   Option{"vary", &Layer::vary, {0, 3}},
    Option{"release", &Layer::release, {0, 5}}, Option{"swell", &Layer::swell, {0, 5}},
    Option{"ebb", &Layer::ebb, {0, 5}},         Option{"flutter", &Layer::flutter, {0, 200}},
    Option{"detune", &Layer::detune, {0, 100}}, Option{"width", &Layer::width, {0.01, 8}},
    Option{"rough", &Layer::rough, {0, 1}},     Option{"breath", &Layer::breath, {0, 10}},
    Option{"edge", &Layer::edge, {0, 1}},       Option{"throat", &Layer::throat, {0.2, 10}},
};

struct Setting {
    std::string_view name;
    double CueRecipe::*value;
    Range range;
};

constexpr std::array kSettings{
    Setting{"length", &CueRecipe::length, {0.1, 10}},
    Setting{"fade", &CueRecipe::fade, {0, 5}},
    Setting{"loudness", &CueRecipe::loudness, {kSoftestBeside, kLoudestBeside}},
    Setting{"room", &CueRecipe::room, {0, 1}},
    Setting{"room-size", &CueRecipe::room_size, {0.001, 0.1}},
};

constexpr Range kAudible{16, 20000};

template <typename Table>
const typename Table::value_type* find_named(const Table& table, std::string_view name) {
    const auto found = std::find_if(table.begin(), table.end(), [&](const auto& row) { return row.name == name; });
    return found == table.end() ? nullptr : &*found;
}

std::vector<double> pitches(const RecipeLine& line, std::string_view text, char divider) {
    std::vector<double> values = line.to_numbers(text, divider);
    for (const double hz : values) {
        if (hz < kAudible.low || hz > kAudible.high) line.refuse(std::string(text) + " holds a pitch nobody hears");
    }
    return values;
}

/// "300/2200,700/1200": mouth positions, each a list of formants. The result runs the other way: one path a formant.
std::vector<Path> to_mouth(const RecipeLine& line, const std::string& text) {
    std::vector<std::vector<double>> paths;
    for (const std::string& position : cut(text, ',')) {
        const std::vector<double> formants = pitches(line, position, '/');
        if (paths.empty()) paths.resize(formants.size());
        if (formants.size() != paths.size()) line.refuse("the mouth positions differ in their number of formants");
        for (std::size_t i = 0; i < formants.size(); ++i) paths[i].push_back(formants[i]);
    }
    return {paths.begin(), paths.end()};
}

void read_option(const RecipeLine& line, const std::string& word, Layer& layer) {
    const std::size_t equals = word.find('=');
    const std::string name = word.substr(0, equals);
    const std::string text = equals == std::string::npos ? "" : word.substr(equals + 1);
    if (name == "mouth") {
        layer.mouth = to_mouth(line, text);
        return;
    }
    const Option* const option = find_named(kOptions, name);
    if (option == nullptr) line.refuse("nothing is known of " + in_quotes(name));
    const double value = line.to_number(text);
    if (value < option->range.low || value > option->range.high) line.refuse(in_quotes(word) + " goes too far");
    layer.*option->value = value;
}

Layer read_layer(const RecipeLine& line) {
    Layer layer;
    layer.wave = line.word(0);
    layer.start = line.number(1, 0, 10);
    layer.length = line.number(2, 0.001, 10);
    layer.attack = line.number(3, 0, 10);
    layer.decay = line.number(4, 0, 60);
    layer.level = line.number(5, 0, 100);
    layer.hz = Path(pitches(line, line.word(6), '>'));
    for (std::size_t column = 7; column < line.size(); ++column) read_option(line, line.word(column), layer);
    if (layer.wave == "voice" && layer.mouth.empty()) line.refuse("a voice needs a mouth");
    if (layer.rate > 0 && layer.decay <= 0) line.refuse("what strikes again and again needs a decay");
    return layer;
}

std::vector<Partial> read_timbre(const RecipeLine& line) {
    std::vector<Partial> partials;
    for (std::size_t column = 2; column < line.size(); ++column) {
        const std::vector<double> values = line.to_numbers(line.word(column), '/');
        if (values.size() != 3 || values[0] <= 0 || values[2] <= 0) {
            line.refuse(in_quotes(line.word(column)) + " is not a partial: ratio/level/decay");
        }
        partials.push_back({values[0], values[1], values[2]});
    }
    if (partials.empty()) line.refuse("a timbre needs a partial");
    return partials;
}

}  // namespace

double Path::at(double part) const {
    const double place = std::clamp(part, 0.0, 1.0) * static_cast<double>(points_.size() - 1);
    const auto before = static_cast<std::size_t>(place);
    if (before + 1 >= points_.size()) return points_.back();
    return points_[before] * std::pow(points_[before + 1] / points_[before], place - static_cast<double>(before));
}

CueRecipe read_cue_recipe(const std::filesystem::path& file) {
    CueRecipe recipe;
    for (const RecipeLine& line : read_recipe(file)) {
        const std::string& name = line.word(0);
        if (const Setting* const setting = find_named(kSettings, name)) {
            recipe.*setting->value = line.number(1, setting->range.low, setting->range.high);
        } else if (name == "seed") {
            recipe.seed = static_cast<std::uint64_t>(line.number(1, 0, 1e9));
        } else if (name == "timbre") {
            recipe.timbres[line.word(1)] = read_timbre(line);
        } else if (name == "voice" || name == "noise" || recipe.timbres.contains(name)) {
            recipe.layers.push_back(read_layer(line));
        } else {
            line.refuse(in_quotes(name) + " is neither a setting nor a timbre of this recipe");
        }
    }
    if (recipe.length <= 0) throw Failure(file.string() + " doesn't say the length of its sound.");
    if (recipe.layers.empty()) throw Failure(file.string() + " has no layer, so nothing would be heard.");
    return recipe;
}

}  // namespace marrowfen
