// Which files are taken for a data store, and how names are compared in it.

#include <unistd.h>

#include <functional>

#include "platform/text/folding.h"
#include "store_fixture.h"

namespace marrowfen::test {
namespace {

TEST_F(StoreTest, OpensNothingButAStoreThatCanBeWrittenAndSaysWhy) {
    const std::string good = bytes_of(file_);
    const auto sql = [this](const std::string& text) {
        return [this, text] { EXPECT_EQ(OtherProgram(file_).run(text), ""); };
    };
    struct Case {
        std::function<void()> spoil;
        std::string reason;
    };
    for (const Case& c : std::initializer_list<Case>{
             {[] {}, ""},
             {[this] { std::filesystem::remove(file_); }, "there is no such file"},
             {[this] { std::filesystem::remove(file_), std::filesystem::create_directory(file_); },
              "a folder has this name"},
             {[this] { write_bytes(file_, ""); }, "it is not a data store of this program"},
             {[this] { write_bytes(file_, std::string(5000, 'x')); },
              "the file is not a data store of this program, or is damaged"},
             {[&] { write_bytes(file_, good.substr(0, good.size() / 2)); }, "the file is damaged"},
             {[&] { write_bytes(file_, good.substr(0, 4096) + std::string(good.size() - 4096, '\1')); }, "damaged"},
             {sql("PRAGMA application_id = 7"), "it is not a data store of this program"},
             {sql("PRAGMA user_version = 2"), "it was made by a newer version of this program"},
             {sql("DROP TABLE Words_Keystage2"), "Words_Keystage2"},
             {sql("DROP INDEX Templates_whole; ALTER TABLE Templates DROP COLUMN pic36"), "Templates"},
             {sql("DROP INDEX Hall_of_Fame_best"), "Hall_of_Fame"},
             {sql("DROP VIEW besttimes"), "besttimes"},
             {[this] { std::filesystem::permissions(file_, std::filesystem::perms(0444)); },
              "the file is read-only for this user account"},
             {[this] { std::filesystem::permissions(folder_.path(), std::filesystem::perms(0555)); },
              "its folder is read-only for this user account"},
             {[this] { std::filesystem::permissions(folder_.path(), std::filesystem::perms(0)); },
              "this user account may not open the file or its folder"},
             {[this] { std::filesystem::remove(file_), std::filesystem::create_symlink(file_, file_); },
              "the disk or the network drive does not answer as it should"},
         }) {
        std::filesystem::permissions(folder_.path(), std::filesystem::perms(0777));
        std::filesystem::remove_all(file_);
        write_bytes(file_, good);
        std::filesystem::permissions(file_, std::filesystem::perms(0666));
        c.spoil();
        const std::string before = bytes_of(file_);
        // Whoever may do everything may also write what is read-only.
        constexpr uid_t kNobody = 65534;
        const uid_t me = geteuid();
        if (me == 0) {
            ASSERT_EQ(seteuid(kNobody), 0);
        }
        const auto opened = engine_.open(name_);
        if (me == 0) {
            ASSERT_EQ(seteuid(me), 0);
        }
        EXPECT_EQ(opened.failure() == nullptr, c.reason.empty()) << c.reason;
        const std::string reason = opened.failure() ? opened.failure()->reason : "";
        EXPECT_NE(reason.find(c.reason), std::string::npos) << reason;
        EXPECT_EQ(bytes_of(file_), before);
    }
    std::filesystem::permissions(folder_.path(), std::filesystem::perms(0777));
}

TEST(Folding, MakesOneOfWhatAChildCallsTheSame) {
    for (const auto& [a, b] : {std::pair{"ÀÉÎ", "àéî"},
                               {"e\u0301", "É"},
                               {"ß", "SS"},
                               {"ΣΑΣ", "σας"},
                               {"ЖЕНЯ", "женя"},
                               {"\u1EC7", "E\u0302\u0323"},
                               {"Å", "\u212B"},
                               {"", ""},
                               {"a b", "A B"}}) {
        EXPECT_EQ(folded(a), folded(b)) << a;
    }
    for (const auto& [a, b] : {std::pair{"e", "é"}, {"l", "ł"}, {"\xC3", "\xE3"}, {"a", "a "}, {"i", "ı"}}) {
        EXPECT_NE(folded(a), folded(b)) << a;
    }
    EXPECT_EQ(folded(std::string_view("A\0B", 3)), std::string("a\0b", 3));
}

}  // namespace
}  // namespace marrowfen::test
