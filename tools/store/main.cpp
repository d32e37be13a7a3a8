// Makes the data store and the list of the pictures that its games need:
// build_store CONTENT_FOLDER PICTURE_LIST_OUT DATA_MDB

#include <exception>
#include <iostream>

#include "store_builder.h"

int main(int argc, char* argv[]) {
    const std::vector<std::filesystem::path> arguments(argv + 1, argv + argc);
    constexpr std::size_t kArguments = 3;
    if (arguments.size() != kArguments) {
        std::cerr << "Usage: build_store CONTENT_FOLDER PICTURE_LIST_OUT DATA_MDB\n";
        return 1;
    }
    try {
        const auto faults = marrowfen::build_store_and_list(arguments[0], arguments[1], arguments[2]);
        for (const std::string& fault : faults) std::cerr << fault << '\n';
        return faults.empty() ? 0 : 1;
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return 1;
    }
}
