// Copies that are taken while children save, and put back after a crash.

#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <thread>

#include "copies/advice.h"
#include "copies/comparison.h"
#include "copies/copies.h"
#include "platform/headless/scripted.h"
#include "platform/sqlite/journal.h"
#include "platform/sqlite/store_check.h"
#include "store_fixture.h"
#include "trial.h"

namespace marrowfen::test {
namespace {

using std::chrono::year_month_day;
constexpr year_month_day kToday{2026y, std::chrono::March, 9d};

class CopiesOf : public StoreTest {
protected:
    std::vector<std::string> results() {
        return OtherProgram(file_).rows("SELECT Points FROM Hall_of_Fame ORDER BY rowid");
    }
    [[nodiscard]] std::vector<std::string> in_the_folder() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(copies_.folder())) {
            if (!entry.path().filename().string().starts_with('.')) names.push_back(entry.path().filename());
        }
        std::ranges::sort(names);
        return names;
    }
    void save(int points) { ASSERT_EQ(add_result(1, 60, points, 5), std::nullopt); }

    /// A computer that stops in the middle of writing: the file is changed in part, and its journal lies beside it.
    void crash_while_writing() {
        const pid_t child = fork();
        if (child == 0) {
            OtherProgram program(file_);
            rlimit as_long_as_it_is{};
            as_long_as_it_is.rlim_cur = as_long_as_it_is.rlim_max = std::filesystem::file_size(file_);
            std::signal(SIGXFSZ, SIG_DFL);  // who writes behind its end is killed
            setrlimit(RLIMIT_FSIZE, &as_long_as_it_is);
            program.run("PRAGMA cache_spill = OFF; INSERT INTO Hall_of_Fame SELECT * FROM Hall_of_Fame");
            _exit(0);
        }
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status));
        ASSERT_TRUE(std::filesystem::exists(journal_of(file_)));
    }

    Copies copies_{file_};
};

TEST_F(CopiesOf, AStoreThatIsInUseAreWhole) {
    const int times = runs(20);
    std::atomic<bool> over = false;
    std::atomic<int> saved = 0;
    std::thread another([&] {
        SqliteStoreEngine engine(files_);
        const auto store = engine.open(name_);
        for (int i = 0; !over; ++i) {
            engine.patience().begin_turn();
            if (add_pupil(*store.value(), "Pupil " + std::to_string(i % 32000)).index() == 0) ++saved;
        }
    });
    for (int i = 0; i < times; ++i) {
        const year_month_day day = std::chrono::sys_days(kToday) + std::chrono::days(i);
        const auto failure = copies_.keep(day, {});
        EXPECT_FALSE(failure) << failure->reason;
        ASSERT_FALSE(copies_.list().empty());
        EXPECT_EQ(copies_.list().front().date, day);
        EXPECT_FALSE(check_copy(copies_.list().front().file));
    }
    over = true;
    another.join();
    told() << "copies taken in use: " << times << " while " << saved << " pupils were added; damaged: 0\n";
    EXPECT_GT(saved, 0);
    EXPECT_EQ(copies_.list().size(), std::min(Copies::kKept, static_cast<std::size_t>(times)));
}

TEST_F(CopiesOf, TheDayAreMadeOnceByOneComputer) {
    std::vector<std::thread> computers;
    for (int i = 0; i < 8; ++i) {
        computers.emplace_back([this] { EXPECT_FALSE(Copies(file_).keep(kToday, {})); });
    }
    for (std::thread& computer : computers) computer.join();
    EXPECT_EQ(in_the_folder(), std::vector<std::string>{"2026-03-09.mdb"});
    save(40);
    EXPECT_FALSE(copies_.keep(kToday, {}));
    EXPECT_EQ(holdings_of(copies_.list().front().file).value().results, 0) << "it is that of the day's first pupil";
    write_bytes(copies_.folder() / "2025-01-01.mdb", "spoilt");
    write_bytes(copies_.folder() / "notes of 2025-01-01.mdb", "not ours");
    EXPECT_EQ(copies_.newest_good()->date, kToday);
    for (int i = 1; i <= 12; ++i) EXPECT_FALSE(copies_.keep(std::chrono::sys_days(kToday) + std::chrono::days(i), {}));
    EXPECT_EQ(copies_.list().size(), Copies::kKept);
    EXPECT_EQ(in_the_folder().back(), "notes of 2025-01-01.mdb");
}

TEST_F(CopiesOf, AFullDiskHarmNothing) {
    save(40);
    EXPECT_FALSE(copies_.keep(kToday, {}));
    const auto before = in_the_folder();
    {
        const FailingDisk full;
        EXPECT_TRUE(copies_.keep(std::chrono::sys_days(kToday) + std::chrono::days(1), {}));
        const auto put_back = copies_.put_back(copies_.list().front().file, "now");
        EXPECT_TRUE(put_back.failure());
    }
    EXPECT_EQ(in_the_folder(), before);
    save(41);
    EXPECT_EQ(results(), (std::vector<std::string>{"40", "41"}));
}

TEST_F(CopiesOf, ACrashedStoreArePutBackWithoutItsJournal) {
    const int times = runs(6);
    OtherProgram(file_).run(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 800) INSERT INTO "
        "Hall_of_Fame SELECT 1, '0:30', NULL, 60, i % 100, 5, NULL FROM n");
    const std::string good = bytes_of(file_);
    int refused = 0;
    for (int i = 0; i < times; ++i) {
        write_bytes(file_, good);
        ASSERT_FALSE(copies_.keep(std::chrono::sys_days(kToday) + std::chrono::days(i), {}));
        const auto then = results();
        store_ = engine_.open(name_).value();
        for (int saved = 0; saved <= i % 3; ++saved) save(77);
        store_.reset();
        crash_while_writing();

        const std::string journal = bytes_of(journal_of(file_));
        // By hand, as with a file manager: never opened with a journal that is not its own.
        const std::string crashed = bytes_of(file_);
        write_bytes(file_, bytes_of(copies_.list().front().file));
        if (const auto opened = engine_.open(name_); opened.failure()) {
            ++refused;
            EXPECT_NE(opened.failure()->reason.find("journal"), std::string::npos) << opened.failure()->reason;
        } else {
            EXPECT_EQ(results(), then) << i;
        }
        write_bytes(file_, crashed);
        write_bytes(journal_of(file_), journal);

        const auto before = copies_.put_back(copies_.list().front().file, std::to_string(i));
        ASSERT_FALSE(before.failure()) << before.failure()->reason;
        EXPECT_EQ(results(), then);
        const auto opened = engine_.open(name_);
        EXPECT_FALSE(opened.failure()) << opened.failure()->reason;
        EXPECT_EQ(std::stoul(OtherProgram(before.value()).rows("SELECT count(*) FROM Hall_of_Fame").front()),
                  then.size() + static_cast<std::size_t>(i % 3) + 1)
            << "what was there is kept, and its journal with it";
    }
    told() << "copies put back after a crash: " << times << ", spoilt: 0; put there by hand: refused " << refused
           << ", opened as they were " << times - refused << "\n";
}

TEST_F(CopiesOf, AStoreThatOthersHaveOpenTellThemSo) {
    save(40);
    EXPECT_FALSE(copies_.keep(kToday, {}));
    save(41);
    const auto put_back = copies_.put_back(copies_.list().front().file, "now");
    ASSERT_FALSE(put_back.failure());
    EXPECT_EQ(add_result(1, 60, 42, 5).value_or(StoreFailure{}).reason,
              "the file was moved or removed while it was in use");
    store_ = engine_.open(name_).value();
    save(43);
    EXPECT_EQ(results(), (std::vector<std::string>{"40", "43"}));
    EXPECT_EQ(OtherProgram(file_).run("BEGIN EXCLUSIVE"), "");
}

TEST_F(CopiesOf, AStoreAreMadeByHandAndTellWhatTheyWouldChange) {
    const auto pupil = add_pupil(*store_, "Zoë");
    save(40);
    const auto made = copies_.make("2026-03-09 14.35.10", {});
    ASSERT_FALSE(made.failure()) << made.failure()->reason;
    const auto again = copies_.make("2026-03-09 14.35.10", {});
    EXPECT_TRUE(again.failure()) << "it is there already";
    EXPECT_TRUE(compare(file_, made.value().file).value().nothing());
    EXPECT_FALSE(copies_.keep(kToday, {}));

    OtherProgram other(file_);
    other.run("DELETE FROM Hall_of_Fame; DELETE FROM Pupils WHERE PupilName = 'Zoë'");
    add_pupil(*store_, "Ben");
    save(41);
    save(42);
    using Lines = std::vector<std::string>;
    EXPECT_EQ(compare(file_, made.value().file).value().lines(),
              (Lines{"1 pupil would go: Ben", "1 pupil would come back: Zoë", "2 results would go",
                     "1 result would come back"}));
    other.run("DELETE FROM words_keystage1 WHERE rowid = 1");
    EXPECT_TRUE(compare(file_, made.value().file).value().other_words);

    const auto put_back = copies_.put_back(made.value().file, "2026-03-09 15.00.00");
    ASSERT_FALSE(put_back.failure());
    EXPECT_TRUE(compare(file_, made.value().file).value().nothing());
    for (int i = 1; i <= 12; ++i) EXPECT_FALSE(copies_.keep(std::chrono::sys_days(kToday) + std::chrono::days(i), {}));
    const auto names = in_the_folder();
    EXPECT_EQ(names.size(), Copies::kKept + 2) << "what somebody made is never let go";
    EXPECT_EQ(names.front(), "2026-03-09 14.35.10.mdb");
    EXPECT_EQ(names.back(), "before 2026-03-09 15.00.00.mdb");
    EXPECT_EQ(copies_.list().back().kind, Copy::Kind::ByHand);

    write_bytes(made.value().file, "spoilt");
    const auto spoilt = compare(file_, made.value().file);
    EXPECT_TRUE(spoilt.failure());
}

TEST_F(CopiesOf, AStoreAreNamedWhereTheyHelpAtTheStart) {
    const ScriptedClock clock;
    const auto advice = [&](Trouble trouble) { return start_advice({"REASON", trouble}, copies_, clock); };
    EXPECT_NE(advice(Trouble::Missing).find("no good copy"), std::string::npos);
    EXPECT_FALSE(copies_.keep(kToday, {}));
    const std::string date = "of " + clock.short_date(kToday);
    for (const Trouble trouble : {Trouble::Missing, Trouble::Damaged, Trouble::Foreign}) {
        EXPECT_NE(advice(trouble).find(date), std::string::npos) << advice(trouble);
    }
    for (const Trouble trouble : {Trouble::Busy, Trouble::Newer, Trouble::NotWritable, Trouble::Other}) {
        EXPECT_EQ(advice(trouble).find("copy"), std::string::npos) << advice(trouble);
    }
}

}  // namespace
}  // namespace marrowfen::test
