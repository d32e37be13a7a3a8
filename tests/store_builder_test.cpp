// What a teacher writes into the tables, and what becomes of the store that a class already uses.

#include "store/store_builder.h"

#include <ctime>

#include "platform/sqlite/sqlite_store.h"
#include "platform/system/disk_files.h"
#include "store_content.h"
#include "tables/picture_list.h"

namespace marrowfen::test {
namespace {

using namespace std::string_literals;
using Lines = std::vector<std::string>;

class StoreBuilderTest : public testing::Test {
protected:
    Lines build() {
        tables_.write(content_);
        return build_store(content_, file_);
    }

    /// Puts `to` in the place of `from`, which stands in the table once at least.
    void change(const std::string& file, const std::string& from, const std::string& to) {
        std::string& text = tables_.files.at(file);
        const auto at = text.find(from);
        ASSERT_NE(at, std::string::npos) << from;
        text.replace(at, from.size(), to);
    }

    Lines in_store(const std::string& sql) { return OtherProgram(file_).rows(sql); }

    /// A class has begun to play: Zoë was removed again, Ann has a result.
    void let_a_class_play() {
        ASSERT_EQ(build(), Lines{});
        OtherProgram class_room(file_);
        ASSERT_EQ(class_room.run("INSERT INTO Pupils VALUES (1, 'Ann', 'ann'), (9, 'Zoë', 'zoë')"), "");
        ASSERT_EQ(class_room.run("DELETE FROM Pupils WHERE Pupil_ID = 9"), "");
        ASSERT_EQ(class_room.run("INSERT INTO Hall_of_Fame VALUES (1, '0:36', '2026-03-09', 60, 40, 5, '10:05:00')"),
                  "");
    }
    const Lines what_the_class_did{"1|Ann|ann|9|0:36|2026-03-09|40"};
    Lines what_is_left_of_it() {
        return in_store("SELECT Pupils.*, seq, TimeTaken, TheDate, Points FROM Pupils, sqlite_sequence, Hall_of_Fame");
    }

    TemporaryFolder folder_;
    std::filesystem::path content_ = folder_.path() / "content";
    std::filesystem::path file_ = folder_.path() / "program" / "data.mdb";
    ContentTables tables_;
};

TEST_F(StoreBuilderTest, NamesEveryFaultWithItsPlaceAndLeavesTheStoreAlone) {
    let_a_class_play();
    const std::string before = bytes_of(file_);
    const ContentTables good = tables_;
    struct Case {
        std::string file, from, to, where, reason;
    };
    for (const Case& c : {
             Case{"games.tsv", "\tPanels", "", ":1: ", "the column Panels is missing"},
             {"games.tsv", "Panels", "Pannels", ":1: ", "there should be no column 'Pannels'"},
             {"games.tsv", "Panels", "Split", ":1: ", "the column Split is there twice"},
             {"games.tsv", "1\t30\t", "x\t30\t", ":2: ", "Template_ID is 'x', but should be a number from 1 to 30"},
             {"games.tsv", "1\t30\t", "31\t30\t", ":1: ", "there is no game with the Template_ID 1"},
             {"games.tsv", "2\t29\t", "1\t29\t", ":3: ", "Template_ID '1' stands in line 2 already"},
             {"games.tsv", "Game of 2\t", "game OF 1\t", ":3: ", "GameName 'game OF 1' stands in line 2 already"},
             {"games.tsv", "Game of 1\t", "\t", ":2: ", "GameName is empty"},
             {"games.tsv", "Game of 1\t", std::string(33, 'm') + "éé\t", ":2: ", "GameName has 35 letters, and 34 fit"},
             {"games.tsv", "Game of 1\t", "Game\0of 1\t"s, ":2: ", "save the table as UTF-8"},
             {"games.tsv", "Game of 1\t", "Game\x07of 1\t", ":2: ", "an invisible control character"},
             {"games.tsv", "\t9\tPic", "\t10\tPic", ":4: ", "Panels is '10', but should be a number from 0 to 9"},
             {"games.tsv", "Pictures", "..\\x", ":4: ", "dragtype is '..\\x', but should be Upper"},
             {"games.tsv", "Upper\tLower\tTrue", "Upper\tLowr\tTrue",
              ":2: ", "droptype is 'Lowr', but should be Upper, Lower or Pictures"},
             {"games.tsv", "Lower\tTrue", "Lower\tYes",
              ":2: ", "backgroundletters is 'Yes', but should be True or False"},
             {"games.tsv", "True\tthings", "True\t", ":4: ", "background is True, so pics should name the pictures"},
             {"games.tsv", "things", "animals", "animals.tsv:1: ", "the file can't be read"},
             {"games.tsv", "True\tthings", "True\tthings\tmore", ":4: ", "there are 11 cells for 10 columns"},
             {"things.tsv", "C\t", "c\t", ":3: ", "key is 'c', but 'C' comes here"},
             {"things.tsv", "A\tthingdf\n", "", ":1: ", "there are 35 keys, but should be 36"},
             {"things.tsv", "thingab", "thingaa", ":3: ", "picture 'thingaa' stands in line 2 already"},
             {"things.tsv", "thingab", "../x", ":3: ", "picture '../x' should have the letters a to z alone"},
             {"things.tsv", "thingab", "c", ":3: ", "picture 'c' should have two letters or more"},
             {"words-keystage1.tsv", "1\tbal\tal\n", "\xEF\xBB\xBF\xFF\tbal\tal\n", ":2: ", "save the table as UTF-8"},
             {"words-keystage1.tsv", "bal\t", "Dal\t", ":3: ", "word 'dal' stands in line 2 already"},
             {"words-keystage1.tsv", "bal\t", "bral\t", ":2: ", "word 'bral' should be one letter and the end 'al'"},
             {"words-keystage1.tsv", "bal\tal", "b-l\t-l", ":2: ", "end '-l' should have the letters a to z alone"},
             {"words-keystage1.tsv", "dal\tal", "dim\tim", ":3: ", "end 'im' differs from 'al' of the same group"},
             {"words-keystage1.tsv", "1\tbal\tal\n1\tdal\tal\n", "", ":2: ", "group 1 has only 2 words; it needs 3"},
             {"words-keystage1.tsv", "1\tjal", "1\tlal", ":5: ", "'lal' can't be found in group 1"},
             {"words-keystage2.tsv", "9\tbat\tat\n9\tdat\tat\n9\that\tat\n9\tjat\tat\n", "",
              ":1: ", "group 9 is missing"},
             {"sentences-keystage1.tsv", "6\tOnce oooooo the big dog ran.\tran\tdog\tbig\n", "",
              ":1: ", "there are 5 sentences, and a game needs 6"},
             {"sentences-keystage1.tsv", "\tran\t", "\trun\t", ":2: ", "Verb 'run' is not a word of the sentence"},
             {"sentences-keystage1.tsv", "dog ran", "dog's dog-like ran", ":2: ", "noun 'dog' is not a word"},
             {"sentences-keystage1.tsv", "big dog", "big Dog", ":2: ", "noun 'dog' is not a word of the sentence"},
             {"sentences-keystage1.tsv", "big dog", "dog, big dog", ":2: ", "noun 'dog' stands in the sentence more"},
             {"sentences-keystage1.tsv", "\tran\t", "\tdog\t", ":2: ", "noun 'dog' stands in line 2 already"},
             {"sentences-keystage1.tsv", "\tdog\t", "\tdög\t",
              ":2: ", "noun 'dög' should have the letters a to z alone"},
             {"sentences-keystage1.tsv", "\tdog\t", "\thippopotamuses\t", ":2: ", "has 14 letters, and 12 fit"},
             {"sentences-keystage1.tsv", "Once o", "Once upon a time far, far, far away éé",
              ":2: ", "Sen has 55 characters, and 45 fit"},
         }) {
        tables_ = good;
        change(c.file, c.from, c.to);
        const Lines faults = build();
        const auto named = [&](const std::string& line) {
            return line.find(c.where) != std::string::npos && line.find(c.reason) != std::string::npos;
        };
        EXPECT_TRUE(std::ranges::any_of(faults, named)) << c.reason << "\n" << testing::PrintToString(faults);
        EXPECT_EQ(bytes_of(file_), before);
    }
    tables_ = good;
    tables_.files["sentences-keystage2.tsv"].clear();
    change("games.tsv", "1\t30\t", "1\t\t");
    change("words-keystage2.tsv", "bal\t", "b\t");
    const std::string in = content_.generic_string();
    EXPECT_EQ(build(), (Lines{in + "/games.tsv:2: GameNumber is empty",
                              in + "/words-keystage2.tsv:2: word 'b' should be one letter and the end 'al'",
                              in + "/sentences-keystage2.tsv:1: the line with the names of the columns is missing"}));
    EXPECT_EQ(bytes_of(file_), before);

    tables_ = good;
    std::string& games = tables_.files["games.tsv"] = "Split";
    for (int i = 0; i < 200'000; ++i) games += "\tx";
    tables_.files["words-keystage1.tsv"] = "\xFF\xFEi\0d\0\t\0w\0o\0r\0d\0\n\0001\0"s;  // letters of two bytes
    const std::clock_t start = std::clock();
    const Lines flood = build();
    EXPECT_LT(std::clock() - start, CLOCKS_PER_SEC) << "of computing";
    ASSERT_EQ(flood.size(), 22U) << "a teacher needs no more to see what is the matter";
    EXPECT_EQ(flood[19], in + "/games.tsv:1: there should be no column 'x'");
    EXPECT_EQ(flood[20], in + "/games.tsv: 199989 more like these");
    EXPECT_EQ(flood[21], in + "/words-keystage1.tsv:1: some letters can't be read; save the table as UTF-8");
}

TEST_F(StoreBuilderTest, TakesATableAsASpreadsheetSavesIt) {
    change("games.tsv", "Game of 1\t", "  Cats & \xC3\x84pfel \t");
    change("games.tsv", "Game of 2\t", std::string(33, 'm') + "é\t");  // as long as the list of games is wide
    change("games.tsv", "Lower\tTrue", "Lower\tTRUE");
    std::string saved = "\xEF\xBB\xBF# a note\t\t\n\t\t\nWord\tID\tEnd\t\n";  // columns in another order and case
    std::istringstream words(tables_.files["words-keystage1.tsv"]);
    std::string id, word, end;
    words >> id >> word >> end;
    while (words >> id >> word >> end) {
        saved.append(word).append("\t").append(id).append("\t").append(end).append("\t\n# a note\n");
    }
    tables_.files["words-keystage1.tsv"] = saved;
    change("sentences-keystage1.tsv", "Once o the big dog ran.", "\"\"\"Oh!\"\" the big dog ran.\"");
    for (auto& [name, text] : tables_.files) {  // with the line ends of other systems
        const std::string line_end = name == "words-keystage2.tsv" ? "\r" : "\r\n";
        for (auto at = text.find('\n'); at != std::string::npos; at = text.find('\n', at + line_end.size())) {
            text.replace(at, 1, line_end);
        }
    }
    ASSERT_EQ(build(), Lines{});
    EXPECT_EQ(
        in_store("SELECT GameName, backgroundletters, droptype, pic1, Split FROM Templates WHERE Template_ID = 1"),
        Lines{"Cats & Äpfel|-1|Lower|Null|0"});
    EXPECT_EQ(in_store("SELECT pic1, pic36, background FROM Templates WHERE Template_ID = 3"),
              Lines{"thingaa|thingdf|-1"});
    EXPECT_EQ(in_store("SELECT Split, droptype FROM Templates WHERE Template_ID IN (5, 30)"),
              (Lines{"-1|Upper", "0|Null"}));
    EXPECT_EQ(in_store("SELECT * FROM Words_Keystage1 LIMIT 2"), (Lines{"1|Bal|bal|al", "1|Dal|dal|al"}));
    EXPECT_EQ(in_store("SELECT Sen, noun FROM Sentences_Keystage1 LIMIT 1"), Lines{"\"Oh!\" the big dog ran.|dog"});
    EXPECT_EQ(in_store("PRAGMA integrity_check"), Lines{"ok"});
}

TEST_F(StoreBuilderTest, RenewsTheContentOfAStoreInUseAndKeepsWhatTheClassDid) {
    let_a_class_play();
    const DiskFiles files(file_.parent_path());
    const auto store = SqliteStoreEngine(files).open(files.program_folder() + "\\data.mdb").value();
    const auto game = [&] {
        const auto games = store->open("Templates");
        EXPECT_TRUE(games->find_first("Template_ID=1").value());
        return as_text(games->field("GameName"));
    };
    EXPECT_EQ(game(), "Game of 1");
    change("games.tsv", "Game of 1\t", "Find it\t");
    ASSERT_EQ(build(), Lines{});
    EXPECT_EQ(game(), "Find it");
    EXPECT_EQ(what_is_left_of_it(), what_the_class_did);
    EXPECT_EQ(in_store("SELECT count(*) FROM Templates"), Lines{"30"});

    const std::string after = bytes_of(file_);
    const auto written = std::filesystem::last_write_time(file_);
    ASSERT_EQ(build(), Lines{});  // nothing has changed
    EXPECT_EQ(std::filesystem::last_write_time(file_), written);
    EXPECT_EQ(bytes_of(file_), after);

    ASSERT_EQ(OtherProgram(file_).run("DROP VIEW SortedPupils; DROP TABLE Words_Keystage1"), "");
    ASSERT_EQ(build(), Lines{});  // the content has not changed, but part of it is lost
    EXPECT_EQ(in_store("SELECT * FROM SortedPupils"), Lines{"Ann"});
    EXPECT_EQ(what_is_left_of_it(), what_the_class_did);
}

TEST_F(StoreBuilderTest, ABuildThatFailsHalfWayChangesNothing) {
    {
        const FailingDisk failing;
        EXPECT_EQ(build_store(content_, file_).size(), 5U);  // the tables are not there either
    }
    tables_.write(content_);
    std::filesystem::create_directories(file_.parent_path());
    {
        const FailingDisk failing;
        EXPECT_EQ(build_store(content_, file_).size(), 1U);
    }
    EXPECT_TRUE(std::filesystem::is_empty(file_.parent_path()));

    let_a_class_play();
    const std::string before = bytes_of(file_);
    change("games.tsv", "Game of 1\t", "Find it\t");
    tables_.write(content_);
    {
        const FailingDisk failing;
        EXPECT_EQ(build_store(content_, file_),
                  Lines{file_.generic_string() + ": the disk or the network drive does not answer as it should"});
    }
    EXPECT_EQ(bytes_of(file_), before);
    EXPECT_EQ(what_is_left_of_it(), what_the_class_did);
    ASSERT_EQ(build(), Lines{});
    EXPECT_EQ(in_store("SELECT GameName FROM Templates WHERE Template_ID = 1"), Lines{"Find it"});
}

TEST_F(StoreBuilderTest, WhatAnInterruptedBuildLeftBehindDoesNoHarm) {
    // The journal is real: it holds pages of another store, which would be played into a new one of this name.
    ASSERT_EQ(build(), Lines{});
    std::string journal;
    {
        OtherProgram writing(file_);
        ASSERT_EQ(writing.run("PRAGMA cache_size = 1; BEGIN; UPDATE Templates SET GameName = GameName || '!'; "
                              "UPDATE Words_Keystage1 SET word = word || '!'"),
                  "");
        journal = bytes_of(file_.string() + "-journal");
        ASSERT_GT(journal.size(), 4096U);
    }
    std::filesystem::remove(file_);
    write_bytes(file_.string() + "-journal", journal);
    write_bytes(file_.string() + ".new", "half a store");
    change("games.tsv", "Game of 1\t", "Find it\t");
    ASSERT_EQ(build(), Lines{});
    EXPECT_EQ(in_store("PRAGMA integrity_check"), Lines{"ok"});
    EXPECT_EQ(in_store("SELECT GameName FROM Templates WHERE Template_ID = 1"), Lines{"Find it"});
    const std::filesystem::directory_iterator left(file_.parent_path());
    EXPECT_EQ(std::distance(begin(left), end(left)), 1);
}

TEST_F(StoreBuilderTest, LeavesAloneWhatIsNotItsOwn) {
    ASSERT_EQ(build(), Lines{});
    const std::string good = bytes_of(file_);
    change("games.tsv", "Game of 1\t", "Find it\t");
    for (const auto& [spoil, reason] : {std::pair{"PRAGMA user_version = 2", "it was made by a newer version"},
                                        {"PRAGMA application_id = 0", "it is not a data store of this program"},
                                        {"ALTER TABLE Pupils RENAME COLUMN PupilName TO Pupil", "PupilName"},
                                        {nullptr, "it is not a data store of this program"}}) {
        write_bytes(file_, spoil ? good : "");
        if (spoil) {
            ASSERT_EQ(OtherProgram(file_).run(spoil), "");
        }
        const std::string before = bytes_of(file_);
        const Lines faults = build();
        ASSERT_EQ(faults.size(), 1U) << reason;
        EXPECT_TRUE(faults.front().starts_with(file_.generic_string() + ": "));
        EXPECT_NE(faults.front().find(reason), std::string::npos) << faults.front();
        EXPECT_EQ(bytes_of(file_), before);
    }
}

TEST_F(StoreBuilderTest, MakesNoSecondStoreBesideOneWhoseNameIsWrittenInAnotherCase) {
    let_a_class_play();
    const auto in_capitals = file_.parent_path() / "DATA.MDB";
    std::filesystem::rename(file_, in_capitals);
    change("games.tsv", "Game of 1\t", "Find it\t");
    ASSERT_EQ(build(), Lines{});
    EXPECT_FALSE(std::filesystem::exists(file_));
    std::filesystem::copy(in_capitals, file_);
    EXPECT_EQ(what_is_left_of_it(), what_the_class_did);
    EXPECT_EQ(in_store("SELECT GameName FROM Templates WHERE Template_ID = 1"), Lines{"Find it"});
    EXPECT_EQ(build(), Lines{file_.generic_string() +
                             ": DATA.MDB and data.mdb can't both be the data store; move one of them away"});
}

TEST_F(StoreBuilderTest, ListsEveryPictureThatAGameCanAskForOnce) {
    change("games.tsv", "Upper\tLower\tTrue", "uPPer\tLOWER\tTrue");
    change("games.tsv", "Upper\tLower\tTrue", "Upper\tpictures\tTrue");
    tables_.write(content_);
    const auto list = folder_.path() / "lists" / "pictures.txt";
    const auto drawings = folder_.path() / "drawings";
    std::filesystem::create_directory(drawings);
    for (char tens = 'a'; tens <= 'd'; ++tens) {
        for (char ones = 'a'; ones <= 'z'; ++ones) std::ofstream(drawings / ("thing"s + tens + ones + ".svg"));
    }
    std::filesystem::remove(drawings / "thingab.svg");
    EXPECT_EQ(build_store_and_list(content_, drawings, list, file_),
              Lines{content_.generic_string() + "/things.tsv:3: there is no drawing 'thingab.svg'"});
    EXPECT_FALSE(std::filesystem::exists(list) || std::filesystem::exists(file_));
    std::ofstream(drawings / "thingab.svg");
    ASSERT_EQ(build_store_and_list(content_, drawings, list, file_), Lines{});
    std::map<std::string, ListedPicture> files;
    std::map<std::string, int> folders;
    for (const ListedPicture& picture : read_picture_list(list)) {
        EXPECT_TRUE(files.try_emplace(picture.file, picture).second) << picture.file;
        ++folders[picture.file.substr(0, picture.file.rfind('/'))];
    }
    EXPECT_EQ(folders, (std::map<std::string, int>{{"Simple/Upper", 36},
                                                   {"Simple/Lower", 36},
                                                   {"Simple/Pictures", 36},
                                                   {"Simple/Back/Upper", 36},
                                                   {"Simple/Back/Lower", 36},
                                                   {"Simple/Back/Pictures", 2 * 36},
                                                   {"Simple/Back/Pictures/Flash", 26},
                                                   {"Simple/RightHand/Upper", 36},
                                                   {"Simple/Back/RightHand/Lower", 36}}));
    for (const ListedPicture& wanted :
         std::initializer_list<ListedPicture>{{"Simple/Upper/7.bmp", CapKind::Tile, '7', ""},
                                              {"Simple/Lower/A.bmp", CapKind::Tile, 'a', ""},
                                              {"Simple/Back/Upper/0.BMP", CapKind::Face, '0', ""},
                                              {"Simple/Back/RightHand/Lower/Y.bmp", CapKind::RightTile, 'y', ""},
                                              {"Simple/RightHand/Upper/Q.BMP", CapKind::RightFace, 'Q', ""},
                                              {"Simple/Pictures/A.bmp", CapKind::Tile, {}, "thingdf"},
                                              {"Simple/Back/Pictures/thingdf.BMP", CapKind::Face, {}, "thingdf"},
                                              {"Simple/Back/Pictures/Flash/xray.bmp", {}, {}, "xray"}}) {
        const ListedPicture& listed = files[wanted.file];
        EXPECT_EQ(std::tie(listed.cap, listed.letter, listed.drawing),
                  std::tie(wanted.cap, wanted.letter, wanted.drawing))
            << wanted.file;
    }
    const auto written = std::filesystem::last_write_time(list);
    ASSERT_EQ(build_store_and_list(content_, drawings, list, file_), Lines{});
    EXPECT_EQ(std::filesystem::last_write_time(list), written);
    std::filesystem::remove(list);
    const FailingDisk failing;
    EXPECT_EQ(build_store_and_list(content_, drawings, list, file_),
              Lines{list.generic_string() + ": the list of pictures can't be written"});
}

}  // namespace
}  // namespace marrowfen::test
