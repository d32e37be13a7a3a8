// Makes the data store and the list of the pictures that its games need.

#include "../failure.h"
#include "store_builder.h"

int main(int argc, char* argv[]) {
    using namespace marrowfen;
    return run_tool(argc, argv, "build_store CONTENT_FOLDER DRAWINGS_FOLDER PICTURE_LIST_OUT DATA_MDB",
                    [](const std::vector<std::filesystem::path>& arguments) {
                        fail_with(build_store_and_list(arguments[0], arguments[1], arguments[2], arguments[3]));
                    });
}
