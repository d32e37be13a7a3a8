#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "platform/sqlite/sqlite_store.h"
#include "platform/system/disk_files.h"
#include "store/store_builder.h"
#include "store_content.h"

namespace marrowfen::test {

using namespace std::chrono_literals;

/// A school with one store, and a computer that has it open.
class StoreTest : public testing::Test {
protected:
    StoreTest() : store_(engine_.open(name_).value()) {}

    [[nodiscard]] std::unique_ptr<RowSet> rows(std::string_view source) { return store_->open(source); }

    Value lookup(std::string_view source, std::string_view field, std::string_view criterion) {
        const auto set = rows(source);
        return set->find_first(criterion).value_or(false) ? set->field(field) : Value{std::int64_t{0}};
    }

    /// What the form does for a new pupil; the id, or the reason against it.
    static std::variant<std::int64_t, std::string> add_pupil(Store& store, const std::string& name) {
        const auto set = store.open("Pupils");
        if (const auto failure = set->add_row()) return failure->reason;
        set->set_field("Pupilname", name);
        const Value id = set->field("Pupil_id");
        if (const auto failure = set->update()) return failure->reason;
        return std::get<std::int64_t>(id);
    }
    auto add_pupil(const std::string& name) { return add_pupil(*store_, name); }

    void add_at_once(const std::vector<std::string>& names) {
        std::string sql = "BEGIN";
        for (const std::string& name : names) {
            sql.append("; INSERT INTO Pupils (PupilName, PupilName_folded) VALUES ('").append(name);
            sql.append("', lower('").append(name).append("'))");
        }
        ASSERT_EQ(other_.run(sql + "; COMMIT"), "");
    }

    std::optional<StoreFailure> add_result(int pupil, int limit, int points, int game) {
        const auto set = rows("Hall_of_Fame");
        if (auto failure = set->add_row()) return failure;
        set->set_field("Pupil_id", std::int64_t{pupil});
        set->set_field("TimeTaken", "0:3" + std::to_string(pupil % 10));
        set->set_field("TheDate", std::chrono::year_month_day{2026y, std::chrono::March, 9d});
        set->set_field("TimeLimit", std::int64_t{limit});
        set->set_field("Points", std::int64_t{points});
        set->set_field("GameID", std::int64_t{game});
        set->set_field("timeplayed", 9h + 5min + 1s);
        return set->update();
    }

    static std::vector<std::string> walk(RowSet& set, std::string_view field) {
        std::vector<std::string> found;
        for (auto row = set.move_first(); row.value(); row = set.move_next())
            found.push_back(as_text(set.field(field)));
        return found;
    }

    static std::filesystem::path make_store(const std::filesystem::path& folder) {
        ContentTables().write(folder / "content");
        EXPECT_EQ(build_store(folder / "content", folder / "Data.mdb"), std::vector<std::string>{});
        return folder / "Data.mdb";
    }

    TemporaryFolder folder_;
    std::filesystem::path file_ = make_store(folder_.path());
    DiskFiles files_{folder_.path()};
    std::string name_ = files_.program_folder() + "\\data.mdb";
    SqliteStoreEngine engine_{files_, 1ms};
    std::unique_ptr<Store> store_;
    OtherProgram other_{file_};
};

}  // namespace marrowfen::test
