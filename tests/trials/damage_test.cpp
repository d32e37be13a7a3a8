// A store that has been damaged: what the program does with it, and what can be saved from it.

#include <random>
#include <set>

#include "copies/salvage.h"
#include "platform/sqlite/schema.h"
#include "store_fixture.h"
#include "trial.h"

namespace marrowfen::test {
namespace {

class Damage : public StoreTest {
protected:
    Damage() {
        EXPECT_EQ(
            other_.run("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 60) "
                       "INSERT INTO Pupils (PupilName, PupilName_folded) SELECT 'Pupil ' || i, 'pupil ' || i FROM n"),
            "");
        EXPECT_EQ(other_.run("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 1500) "
                             "INSERT INTO Hall_of_Fame SELECT i % 60 + 1, (i % 4) || ':' || printf('%02d', i % 60), "
                             "date('2025-01-01', '+' || (i / 5) || ' days'), 60 * (1 + i % 4), i % 100, i % 26 + 1, "
                             "time(i * 37, 'unixepoch') FROM n"),
                  "");
        EXPECT_EQ(
            other_.run("DELETE FROM Pupils WHERE Pupil_ID % 20 = 7; DELETE FROM Hall_of_Fame WHERE rowid % 50 = 0"),
            "");
        store_.reset();
        whole_ = bytes_of(file_);
        rows_ = dump(file_);
        results_ = of_table(rows_, "Hall_of_Fame");
        pupils_ = of_table(rows_, "Pupils");
    }

    using Rows = std::set<std::string>;

    /// Everything that is stored, or what can be read of it.
    static Rows dump(const std::filesystem::path& file) {
        OtherProgram program(file);
        Rows rows;
        for (const Source& source : sources()) {
            if (source.kind == SourceKind::Query) continue;
            std::string fields;
            for (const Field& field : source.fields) fields += " || '|' || quote(" + in_brackets(field.name) + ")";
            program.collect("SELECT '" + source.name + " ' || rowid" + fields + " FROM " + in_brackets(source.name),
                            rows);
        }
        program.collect("SELECT 'numbers ' || name || seq FROM sqlite_sequence", rows);
        program.collect("SELECT 'schema ' || sql FROM sqlite_schema WHERE sql IS NOT NULL", rows);
        return rows;
    }
    static Rows of_table(const Rows& rows, const std::string& table) {
        Rows found;
        for (const std::string& row : rows) {
            // Without its number: in another store it has another one.
            if (row.starts_with(table + " ")) found.insert(row.substr(row.find('|')));
        }
        return found;
    }
    static std::size_t in_both(const Rows& a, const Rows& b) {
        return static_cast<std::size_t>(
            std::ranges::count_if(a, [&b](const std::string& row) { return b.contains(row); }));
    }

    std::string damaged(int kind) {
        std::string bytes = whole_;
        const auto below = [this](std::size_t end) {
            return std::uniform_int_distribution<std::size_t>(0, end - 1)(chance_);
        };
        constexpr std::size_t kSector = 512;
        constexpr std::size_t kPage = 4096;
        switch (kind % 4) {
            case 0:
                bytes[below(bytes.size())] ^= static_cast<char>(1U << below(8));
                break;
            case 1:
                std::fill_n(bytes.begin() + static_cast<std::ptrdiff_t>(kSector * below(bytes.size() / kSector)),
                            kSector, '\0');
                break;
            case 2:
                bytes.resize(below(bytes.size()));
                break;
            default: {
                const std::size_t one = kPage * below(bytes.size() / kPage);
                const std::size_t other = kPage * below(bytes.size() / kPage);
                std::swap_ranges(bytes.begin() + static_cast<std::ptrdiff_t>(one),
                                 bytes.begin() + static_cast<std::ptrdiff_t>(one + kPage),
                                 bytes.begin() + static_cast<std::ptrdiff_t>(other));
            }
        }
        return bytes;
    }

    /// Adds a pupil and a result, as a child does who has just come. False: the store did not take them.
    static bool is_written_to(Store& store) {
        if (add_pupil(store, "Newcomer").index() != 0) return false;
        const auto set = store.open("Hall_of_Fame");
        if (set->add_row()) return false;
        for (const char* field : {"Pupil_id", "TimeLimit", "Points", "GameID"}) set->set_field(field, std::int64_t{1});
        set->set_field("TimeTaken", "0:59");
        return !set->update();
    }

    std::string whole_;
    Rows rows_, results_, pupils_;
    std::mt19937 chance_{20260309};
};

TEST_F(Damage, IsNeverWrittenToWithoutAWord) {
    const int times = runs(80);
    int unlike = 0;
    int refused = 0;
    int harmless = 0;
    for (int i = 0; i < times; ++i) {
        const std::string before = damaged(i);
        write_bytes(file_, before);
        unlike += before == whole_ ? 0 : 1;
        SqliteStoreEngine engine(files_, 1ms);
        const auto opened = engine.open(name_);
        if (opened.failure() || !is_written_to(*opened.value())) {
            ++refused;
            EXPECT_EQ(bytes_of(file_), before) << i;
            continue;
        }
        // It was taken for whole, so nothing that was stored may be missing or other than it was.
        ++harmless;
        const Rows now = dump(file_);
        for (const std::string& row : rows_) {
            EXPECT_TRUE(row.starts_with("numbers") || now.contains(row)) << i << ": " << row;
        }
    }
    told() << "damaged stores: " << times << ", refused: " << refused
           << ", damaged where nothing is stored: " << harmless - (times - unlike)
           << ", not damaged after all: " << times - unlike << "\n";
    EXPECT_GT(refused, times / 2);
}

TEST_F(Damage, LeavesWhatCanBeRead) {
    const int times = runs(24);
    std::size_t saved = 0;
    std::size_t wrong = 0;
    int games = 0;
    int all = 0;
    int tried = 0;
    for (int i = 0; i < times; ++i) {
        if (i % 4 == 2) continue;  // what was cut off can't be read
        ++tried;
        write_bytes(file_, damaged(i));
        const auto before = bytes_of(file_);
        const auto into = folder_.path() / "saved.mdb";
        std::filesystem::remove(into);
        const auto told_so = salvage(file_, into, std::nullopt);
        ASSERT_FALSE(told_so.failure()) << i << told_so.failure()->reason;
        EXPECT_EQ(bytes_of(file_), before);
        const Rows now = dump(into);
        const Rows results = of_table(now, "Hall_of_Fame");
        saved += in_both(results_, results);
        wrong += results.size() - in_both(results_, results);
        all += results == results_ && of_table(now, "Pupils") == pupils_ ? 1 : 0;
        games += told_so.value().has_games ? 1 : 0;
        EXPECT_GT(in_both(results_, results), results_.size() * 9 / 10) << i;
    }
    told() << "salvaged: " << tried << " stores, " << all << " of them with every pupil and result; of "
           << results_.size() * static_cast<std::size_t>(tried) << " results " << saved << " saved, " << wrong
           << " came out other than they were; with games: " << games << "\n";
}

}  // namespace
}  // namespace marrowfen::test
