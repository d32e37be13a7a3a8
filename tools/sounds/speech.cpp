#include "speech.h"

#include <cstdlib>
#include <fstream>
#include <iomanip>
#include <random>
#include <sstream>
#include <system_error>

#include "../failure.h"
#include "finish.h"
#include "recipe_file.h"
#include "resample.h"
#include "sound_file.h"

namespace marrowfen {
namespace {

namespace fs = std::filesystem;

constexpr double kShortest = 0.75;  // of the wanted length; another release of espeak-ng may speak a little otherwise
constexpr double kLongest = 1.3;

constexpr std::string_view kVoiceLetters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-+_";

constexpr std::string_view kKeys = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";

/// The voice becomes part of a command, so nothing may stand in it that a shell would read its own way.
std::string to_voice(const RecipeLine& line) {
    const std::string& voice = line.word(1);
    if (voice.find_first_not_of(kVoiceLetters) != std::string::npos) line.refuse(in_quotes(voice) + " is not a voice");
    return voice;
}

fs::path new_folder() {
    std::random_device chance;
    std::ostringstream name;
    name << "make_sounds-" << std::hex << chance() << chance();
    std::error_code error;
    fs::path folder = fs::temp_directory_path(error) / name.str();
    if (error || !fs::create_directory(folder, error)) {
        throw Failure("There is no place for working files: the folder for temporary ones can't be used.");
    }
    return folder;
}

std::string first_line(const fs::path& file) {
    std::ifstream in(file);
    std::string line;
    std::getline(in, line);
    while (line.ends_with('.')) line.pop_back();  // the sentence around it has its own
    return line.empty() ? "it gives no reason" : line;
}

}  // namespace

std::vector<LetterRecipe> read_letter_recipes(const fs::path& file) {
    std::vector<LetterRecipe> letters;
    std::string voice;
    int speed = 0;
    for (const RecipeLine& line : read_recipe(file)) {
        const std::string& key = line.word(0);
        if (key == "voice") {
            voice = to_voice(line);
        } else if (key == "speed") {
            speed = static_cast<int>(line.number(1, 80, 450));
        } else if (key.size() != 1 || kKeys.find(key) == std::string_view::npos) {
            line.refuse(in_quotes(key) + " is neither a key of the board nor a setting");
        } else if (voice.empty() || speed == 0) {
            line.refuse("a voice and a speed must stand above the first key");
        } else {
            letters.push_back({key, voice, speed, line.word(1), line.number(2, 0.2, 0.9), line.number(3, 0, 0.9),
                               line.number(4, kSoftestBeside, kLoudestBeside)});
        }
    }
    return letters;
}

SpeechSynthesizer::SpeechSynthesizer() : folder_(new_folder()) {}

SpeechSynthesizer::~SpeechSynthesizer() {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
}

Samples SpeechSynthesizer::say(const LetterRecipe& letter) const {
    const std::string command = "espeak-ng -z -v " + letter.voice + " -s " + std::to_string(letter.speed) + " -f " +
                                in_quotes((folder_ / "text").string()) + " -w " +
                                in_quotes((folder_ / "speech.wav").string()) + " 2> " +
                                in_quotes((folder_ / "reason").string());
    std::ofstream(folder_ / "text") << "[[" << letter.phonemes << "]]\n";
    fs::remove(folder_ / "speech.wav");  // or the letter before could pass for this one
    if (std::system(command.c_str()) != 0) {
        throw Failure("espeak-ng can't speak the sound of " + letter.key + ": " + first_line(folder_ / "reason") + ".");
    }
    const Recording speech = read_recording(folder_ / "speech.wav");
    Samples sound = trimmed(resampled(speech.samples, speech.rate));
    fade_out(sound, letter.fade);
    sound = trimmed(sound);
    const double seconds = seconds_of(sound.size());
    if (seconds < letter.length * kShortest || seconds > letter.length * kLongest) {
        std::ostringstream sentence;
        sentence << std::fixed << std::setprecision(2) << "The sound of " << letter.key << " lasts " << seconds
                 << " seconds instead of " << letter.length << ", so espeak-ng read its phonemes \"" << letter.phonemes
                 << "\" in another way.";
        throw Failure(sentence.str());
    }
    return sound;
}

}  // namespace marrowfen
