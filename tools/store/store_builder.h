#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace marrowfen {

/// Makes the data store `data_mdb` from the tables of `content_folder`, or brings an existing one up to date in one
/// step that either happens or not. Pupils and results stay. A store that holds this content already is not touched.
/// Returns what stands in the way, a line each, "FILE:LINE: reason" for the content and "FILE: reason" for the store;
/// empty: the store is there. With faults nothing was changed.
[[nodiscard]] std::vector<std::string> build_store(const std::filesystem::path& content_folder,
                                                   const std::filesystem::path& data_mdb);

/// The same, where every picture of a key must have its drawing NAME.svg in `drawings`. Writes what all pictures are
/// that the games need into `picture_list`, as `read_picture_list` reads it. A list that would not change is not
/// touched.
[[nodiscard]] std::vector<std::string> build_store_and_list(const std::filesystem::path& content_folder,
                                                            const std::filesystem::path& drawings,
                                                            const std::filesystem::path& picture_list,
                                                            const std::filesystem::path& data_mdb);

}  // namespace marrowfen
