// Somebody stumbles over the cable while children save their results.

#include "plug_disk.h"
#include "store_fixture.h"
#include "trial.h"

namespace marrowfen::test {
namespace {

class Power : public StoreTest {
protected:
    struct Lost {
        int results = 0;  ///< cuts that took back what had been shown as kept
        int stores = 0;   ///< cuts after which the store could not be opened
    };

    /// A lesson of saved results, the first with number 1, on a disk that notes everything.
    void teach(PlugDisk& disk) {
        SqliteStoreEngine engine(files_, 1ms);
        store_ = engine.open(name_).value();
        constexpr int kSaved = 30;
        for (int i = 1; i <= kSaved; ++i) {
            EXPECT_EQ(add_result(1, 60, i, 5), std::nullopt);
            disk.acknowledge(i);
        }
        store_.reset();
        disk.stop();
    }

    Lost pull_plugs(int times, PlugDisk::Folder way) {
        Lost lost;
        std::mt19937 chance(20260309);
        constexpr int kCutsInALesson = 250;
        for (int cut = 0; cut < times;) {
            const std::string before = bytes_of(file_);
            PlugDisk disk;
            teach(disk);
            const TemporaryFolder elsewhere;
            const DiskFiles files(elsewhere.path());
            for (int i = 0; i < kCutsInALesson && cut < times; ++i, ++cut) {
                const auto after = std::uniform_int_distribution<std::size_t>(0, disk.events())(chance);
                const int saved = disk.pull_plug(after, way, elsewhere.path() / "data.mdb", before, chance);
                SqliteStoreEngine engine(files, 1ms);
                const auto opened = engine.open(files.program_folder() + "\\data.mdb");
                if (opened.failure()) {
                    ++lost.stores;
                    ADD_FAILURE() << opened.failure()->reason;
                    continue;
                }
                OtherProgram other(elsewhere.path() / "data.mdb");
                const auto found = std::stoi(other.rows("SELECT ifnull(max(Points), 0) FROM Hall_of_Fame").front());
                lost.results += found < saved ? 1 : 0;
                EXPECT_LE(found, saved + 1);
                EXPECT_EQ(other.rows("SELECT count(*) FROM Hall_of_Fame").front(), std::to_string(found));
            }
            store_.reset();
            write_bytes(file_, before);
        }
        return lost;
    }
};

TEST_F(Power, TakesNothingBackThatWasShownAsKept) {
    const int times = runs(300);
    const Lost lost = pull_plugs(times, PlugDisk::Folder::Synced);
    told() << "power cuts: " << times << ", results lost: " << lost.results << ", stores lost: " << lost.stores << "\n";
    EXPECT_EQ(lost.results, 0);
}

TEST_F(Power, WouldTakeResultsBackIfTheFolderWereLeftToTheDisk) {  // so the trial can see it
    const int times = std::min(runs(100), 1000);
    const Lost lost = pull_plugs(times, PlugDisk::Folder::LeftToTheDisk);
    told() << "without the folder's sync: " << times << " power cuts, results lost: " << lost.results << "\n";
    EXPECT_GT(lost.results, times / 10);
}

}  // namespace
}  // namespace marrowfen::test
