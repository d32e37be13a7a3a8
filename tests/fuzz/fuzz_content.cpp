// One content table of anything, the others as they are. What the table builder takes, the games must be able to play.

#include <array>

#include "fuzz.h"
#include "monkey.h"
#include "store/store_builder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace marrowfen;
    namespace fs = std::filesystem;
    constexpr std::array kTables{"games.tsv",  "sentences-keystage1.tsv", "sentences-keystage2.tsv",
                                 "things.tsv", "words-keystage1.tsv",     "words-keystage2.tsv"};
    if (size == 0) return 0;
    static const TemporaryFolder content;
    for (const char* table : kTables) {
        fs::copy_file(fs::path(MARROWFEN_CONTENT_FOLDER) / table, content.path() / table,
                      fs::copy_options::overwrite_existing);
    }
    std::ofstream(content.path() / kTables.at(data[0] % kTables.size()), std::ios::binary)
        << as_text(data + 1, size - 1);
    const fs::path store = content.path() / "data.mdb";
    fs::remove(store);
    const auto faults = build_store(content.path(), store);
    for (const std::string& fault : faults) must_hold(fault.find(": ") != std::string::npos, "a fault without a place");
    must_hold(faults.empty() == fs::exists(store), "a store in spite of faults, or none without");
    if (!faults.empty()) return 0;

    Classroom room({});
    fs::copy_file(store, room.folder.path() / "data.mdb", fs::copy_options::overwrite_existing);
    Monkey monkey(room, 1);
    room.start();
    monkey.plays(600);
    must_hold(monkey.complaint().empty(), monkey.complaint());
    return 0;
}
