#pragma once

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "board/key_table.h"
#include "other_program.h"
#include "temporary_folder.h"

/// What tests of the store need: small content that a store can be made from.
namespace marrowfen::test {

inline std::string bytes_of(const std::filesystem::path& file) {
    std::ostringstream text;
    text << std::ifstream(file, std::ios::binary).rdbuf();
    return std::move(text).str();
}

inline void write_bytes(const std::filesystem::path& file, const std::string& bytes) {
    std::ofstream(file, std::ios::binary) << bytes;
}

/// The tables by file name. Change them, then write them out.
struct ContentTables {
    std::map<std::string, std::string> files;

    ContentTables() {
        std::string& games = files["games.tsv"] =
            "Template_"
            "ID\tGameNumber\tGameName\tPanels\tdragtype\tdroptype\tbackgroundletters\tSplit\tbackground\tpics\n";
        constexpr int kGames = 30;
        for (int id = 1; id <= kGames; ++id) {  // game 3 has pictures, game 5 two hands, game 30 blank keys
            const std::string look = id == 3    ? "Pictures\tUpper\tTrue\tFalse\tTrue\tthings"
                                     : id == 5  ? "Lower\tUpper\tTrue\tTrue\t\t"
                                     : id == 30 ? "Upper\t\t\tFalse\tFalse\t"
                                                : "Upper\tLower\tTrue\tFalse\tFalse\t";
            games += std::to_string(id) + "\t" + std::to_string(kGames + 1 - id) + "\tGame of " + std::to_string(id) +
                     "\t9\t" + look + "\n";
        }
        std::string& things = files["things.tsv"] = "key\tpicture\n";
        for (std::size_t i = 0; i < kKeyPlaces.size(); ++i) {
            const std::string number{static_cast<char>('a' + i / 10), static_cast<char>('a' + i % 10)};
            things.append(1, kKeyPlaces[i].tag).append("\tthing").append(number).append("\n");
        }
        for (const auto& [stage, groups] : {std::pair{1, 7}, std::pair{2, 9}}) {
            std::string& words = files["words-keystage" + std::to_string(stage) + ".tsv"] = "id\tword\tend\n";
            for (int id = 1; id <= groups; ++id) {
                const std::string end = std::string("a") + static_cast<char>('k' + id);
                for (const char first : {'b', 'd', 'h', 'j'}) {
                    words.append(std::to_string(id)).append("\t").append(1, first).append(end).append("\t");
                    words.append(end).append("\n");
                }
            }
            std::string& sentences = files["sentences-keystage" + std::to_string(stage) + ".tsv"] =
                "sen_id\tSen\tVerb\tnoun\tadjective\n";
            for (int id = 1; id <= 6; ++id) {
                const std::string way(static_cast<std::size_t>(id), 'o');
                sentences.append(std::to_string(id)).append("\tOnce ").append(way);
                sentences.append(" the big dog ran.\tran\tdog\tbig\n");
            }
        }
    }

    void write(const std::filesystem::path& folder) const {
        std::filesystem::create_directories(folder);
        for (const auto& [name, text] : files) write_bytes(folder / name, text);
    }
};

/// No file can grow any more: as on a disk that fails.
class FailingDisk {
public:
    FailingDisk() {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before_);
        rlimit none = before_;
        none.rlim_cur = 0;
        setrlimit(RLIMIT_FSIZE, &none);
    }
    ~FailingDisk() { setrlimit(RLIMIT_FSIZE, &before_); }
    FailingDisk(const FailingDisk&) = delete;
    FailingDisk& operator=(const FailingDisk&) = delete;

private:
    rlimit before_{};
};

}  // namespace marrowfen::test
