// Part of what is installed: brings the words and games that came with this version into the data store, or makes the
// store where there is none. Pupils and results stay.

#include "../failure.h"
#include "store_builder.h"

int main(int argc, char* argv[]) {
    using namespace marrowfen;
    return run_tool(argc, argv, "marrowfen-content CONTENT_FOLDER DATA_MDB",
                    [](const std::vector<std::filesystem::path>& arguments) {
                        fail_with(build_store(arguments[0], arguments[1]));
                    });
}
