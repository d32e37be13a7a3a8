// Makes every sound of the program from the recipes.

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

#include "../failure.h"
#include "cue_recipe.h"
#include "finish.h"
#include "sound_file.h"
#include "speech.h"
#include "synth.h"

namespace marrowfen {
namespace {

namespace fs = std::filesystem;

void finish_and_write(Samples sound, double decibels, const fs::path& file) {
    if (!finish(sound, decibels)) {
        throw Failure("The sound " + file.filename().string() +
                      " is silent, or too spiky to be as loud as the others.");
    }
    write_sound(file, sound);
}

/// A recipe is named after the sound: "ding.wav.txt" makes "ding.wav".
void make_cues(const fs::path& recipes, const fs::path& out) {
    std::vector<fs::path> files;
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(recipes, error)) {
        if (entry.path().extension() == ".txt") files.push_back(entry.path());
    }
    if (error) throw Failure("The folder " + recipes.string() + " can't be read: " + error.message() + ".");
    if (files.empty()) throw Failure("The folder " + recipes.string() + " holds no recipe.");
    std::ranges::sort(files);
    for (const fs::path& file : files) {
        const CueRecipe recipe = read_cue_recipe(file);
        Samples sound = play(recipe);
        fade_out(sound, recipe.fade);
        finish_and_write(std::move(sound), recipe.loudness, out / file.stem());
    }
}

void make_letters(const fs::path& recipe, const fs::path& out) {
    const SpeechSynthesizer synthesizer;
    for (const LetterRecipe& letter : read_letter_recipes(recipe)) {
        finish_and_write(synthesizer.say(letter), letter.loudness, out / (letter.key + ".wav"));
    }
}

void make_sounds(const std::vector<fs::path>& arguments) {
    const fs::path& recipes = arguments[0];
    const fs::path& out = arguments[1];
    const fs::path letters = out / "Phonics" / "Lower_Case";
    std::error_code error;
    fs::create_directories(letters, error);
    if (error) throw Failure("The folder " + letters.string() + " can't be made: " + error.message() + ".");
    make_cues(recipes / "cues", out);
    make_letters(recipes / "letters.tsv", letters);
}

}  // namespace
}  // namespace marrowfen

int main(int argc, char* argv[]) {
    return marrowfen::run_tool(argc, argv, "make_sounds RECIPES_FOLDER OUT_FOLDER", marrowfen::make_sounds);
}
