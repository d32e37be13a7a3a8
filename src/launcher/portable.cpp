// Starts the program that was unpacked on a stick or a share, at a double click. What was unpacked holds no store, so
// that a newer one can be unpacked over an older one and all pupils stay: the store is made, or given the newer words
// and games, just before the start.

#include <algorithm>
#include <iterator>

#include "launcher/starting.h"
#include "platform/system/own_folder.h"

int main(int argc, char** argv) {
    const std::string program = marrowfen::own_folder().string() + "/program/";
    marrowfen::run({program + "marrowfen-content", program + "Content", program + "data.mdb"});
    std::vector<std::string> words{program + "marrowfen"};
    std::copy(argv + std::min(argc, 1), argv + argc, std::back_inserter(words));
    return marrowfen::become(words);
}
