#include "store_builder.h"

#include <fstream>
#include <sstream>
#include <system_error>

#include "content.h"
#include "game_pictures.h"
#include "store_file.h"

namespace marrowfen {

namespace {

namespace fs = std::filesystem;

std::string text_of(const fs::path& file) {
    std::ostringstream text;
    text << std::ifstream(file, std::ios::binary).rdbuf();
    return std::move(text).str();
}

bool write_list(const fs::path& file, const std::string& text) {
    if (text_of(file) == text) return true;
    std::error_code error;
    if (file.has_parent_path()) fs::create_directories(file.parent_path(), error);
    std::ofstream output(file, std::ios::binary);
    output << text << std::flush;
    return output.good();
}

std::vector<std::string> write(const Content& content, const Faults& faults, const fs::path& data_mdb) {
    if (!faults.none()) return faults.lines();
    if (const auto failure = write_store(data_mdb, content))
        return {data_mdb.generic_string() + ": " + failure->reason};
    return {};
}

}  // namespace

std::vector<std::string> build_store(const fs::path& content_folder, const fs::path& data_mdb) {
    Faults faults;
    const Content content = read_content(content_folder, {}, faults);
    return write(content, faults, data_mdb);
}

std::vector<std::string> build_store_and_list(const fs::path& content_folder, const fs::path& drawings,
                                              const fs::path& picture_list, const fs::path& data_mdb) {
    Faults faults;
    const Content content = read_content(content_folder, drawings, faults);
    auto lines = write(content, faults, data_mdb);
    if (lines.empty() && !write_list(picture_list, as_table(pictures_for(content)))) {
        lines.push_back(picture_list.generic_string() + ": the list of pictures can't be written");
    }
    return lines;
}

}  // namespace marrowfen
