#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "samples.h"

namespace marrowfen {

/// One row of the letter table.
struct LetterRecipe {
    std::string key;       // the capital letter or the digit that names the file
    std::string voice;     // of espeak-ng
    int speed = 0;         // words a minute
    std::string phonemes;  // as espeak-ng writes them
    double length = 0;     // seconds that it should last
    double fade = 0;       // seconds in which it dies away at its end
    double loudness = 0;   // decibels beside the common loudness
};

/// Throws Failure with file and line for whatever it can't read.
[[nodiscard]] std::vector<LetterRecipe> read_letter_recipes(const std::filesystem::path& file);

/// Speaks with espeak-ng. Its working files lie in a folder of their own, which goes away with the object.
class SpeechSynthesizer {
public:
    SpeechSynthesizer();
    SpeechSynthesizer(const SpeechSynthesizer&) = delete;
    SpeechSynthesizer& operator=(const SpeechSynthesizer&) = delete;
    ~SpeechSynthesizer();

    /// The letter's sound without silence around it, at kRate. Throws Failure where espeak-ng fails, and where
    /// the length is not the wanted one: espeak-ng leaves out what it can't read and says nothing.
    [[nodiscard]] Samples say(const LetterRecipe& letter) const;

private:
    std::filesystem::path folder_;
};

}  // namespace marrowfen
