#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace marrowfen {

/// Another program that has the store open, and looks into it past the adapter.
class OtherProgram {
public:
    explicit OtherProgram(const std::filesystem::path& file) { sqlite3_open(file.c_str(), &handle_); }
    ~OtherProgram() { sqlite3_close(handle_); }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

    /// Empty: it worked.
    std::string run(const std::string& sql) { return list(sql, nullptr); }
    /// The first value of each row, as far as they can be read.
    void collect(const std::string& sql, std::set<std::string>& found) {
        const auto take = [](void* out, int, char** values, char**) {
            static_cast<std::set<std::string>*>(out)->insert(values[0] ? values[0] : "");
            return 0;
        };
        sqlite3_exec(handle_, sql.c_str(), take, &found, nullptr);
    }
    /// One line a row, the values parted by "|".
    std::vector<std::string> rows(const std::string& sql) {
        std::vector<std::string> found;
        EXPECT_EQ(list(sql, &found), "");
        return found;
    }

private:
    std::string list(const std::string& sql, std::vector<std::string>* found) {
        const auto take = [](void* out, int count, char** values, char** /*names*/) {
            std::string row;
            for (int i = 0; i < count; ++i) row.append(i == 0 ? "" : "|").append(values[i] ? values[i] : "Null");
            if (out) static_cast<std::vector<std::string>*>(out)->push_back(row);
            return 0;
        };
        return sqlite3_exec(handle_, sql.c_str(), take, found, nullptr) == SQLITE_OK ? "" : sqlite3_errmsg(handle_);
    }

    sqlite3* handle_ = nullptr;
};

}  // namespace marrowfen
