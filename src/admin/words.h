#pragma once

#include <CLI/CLI.hpp>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace marrowfen {

/// What all words of the command line share.
struct Admin {
    std::filesystem::path store;  ///< the file, set before a word is done
    int status = EXIT_SUCCESS;    ///< of the program

    void fail(const std::string& sentence);  ///< tells it on the error output
};

// Each gives the command line one word, with its options and what it does.
void add_copies(CLI::App& line, Admin& admin);
void add_restore(CLI::App& line, Admin& admin);
void add_salvage(CLI::App& line, Admin& admin);
void add_share(CLI::App& line, Admin& admin);

struct Holdings;
[[nodiscard]] std::string in_words(const Holdings& holdings);  ///< "30 pupils and 1200 results"

}  // namespace marrowfen
