// What a teacher does with pupils and results, on a store that the games have open at the same time.

#include <sstream>

#include "school/book.h"
#include "school/class_list.h"
#include "school/csv.h"
#include "school/desk.h"
#include "school/export.h"
#include "school/result_list.h"
#include "school/standing.h"
#include "school/word_sets.h"
#include "store_fixture.h"

namespace marrowfen::test {
namespace {

using namespace std::string_literals;
using Lines = std::vector<std::string>;

const Progress kNobodyWatches;

/// A failure's sentence; empty: it worked.
std::string why(const std::optional<StoreFailure>& failure) { return failure ? failure->reason : ""; }

class SchoolTest : public StoreTest {
protected:
    SchoolTest() { read(); }

    void read() {
        const auto answer = book_.refresh(Book::Reading::WhatIsNew, kNobodyWatches);
        EXPECT_EQ(answer.failure(), nullptr);
    }
    void add(const Lines& names) {
        EXPECT_EQ(why(desk_.add(names, kNobodyWatches)), "");
        read();
    }
    std::string undo() {
        const auto answer = desk_.undo(kNobodyWatches);
        read();
        return answer.failure() ? answer.failure()->reason : answer.value();
    }
    /// As the game does it.
    void plays(int pupil, int game, int limit, int points, const std::string& date = "2026-03-09") {
        EXPECT_EQ(add_result(pupil, limit, points, game), std::nullopt);
        ASSERT_EQ(other_.run("UPDATE Hall_of_Fame SET TheDate = '" + date + "' WHERE rowid = last_insert_rowid() OR " +
                             "rowid = (SELECT max(rowid) FROM Hall_of_Fame)"),
                  "");
        read();
    }
    Lines kept() {
        Lines all = other_.rows("SELECT * FROM Pupils ORDER BY 1");
        for (std::string& row : other_.rows("SELECT * FROM Hall_of_Fame")) all.push_back(std::move(row));
        return all;
    }
    Lines names() {
        Lines all;
        for (const KeptPupil& pupil : book_.pupils()) all.push_back(pupil.name);
        return all;
    }
    std::unique_ptr<Register> register_ = engine_.open_register(name_).value();
    Book book_{*store_, *register_};
    Desk desk_{book_, *register_};
};

TEST(ClassListTest, TakesListsAsOfficesSaveThemAndSaysWhatIsWrongWithALine) {
    const std::vector<KeptPupil> pupils{{1, "Zoë"}};
    const auto told = [&](const std::string& text) {
        const ClassList list(text);
        Lines lines;
        for (const auto& line : list.lines(list.likely_column(), pupils)) {
            lines.push_back(std::to_string(line.number) + " " + line.name +
                            (line.fault.empty() ? "" : ": " + line.fault));
        }
        return lines;
    };
    const std::string long_name(51, 'x');
    std::string accented;
    for (int i = 0; i < 50; ++i) accented += "e\u0301";  // two characters each, which a reader takes for one
    EXPECT_EQ(told("Ann\n\n  Ben   O'Neill \r\nZOË\rann\n\xE2\x80\x8B\n" + long_name + "\n" + accented),
              (Lines{"1 Ann", "3 Ben O'Neill", "4 ZOË: there is a pupil of that name already",
                     "5 ann: the same name stands in line 1", "6 : there is no name here",
                     "7 " + long_name + ": the name has 51 letters, and 50 fit", "8 " + accented}));
    EXPECT_EQ(told("\uFEFFClass;Pupil;Born\n2b;\"Ann \"\"Annie\"\" Lee\";2018\n2b;\"Bo;b\n\nx\";2019\n2b;Cy\n2b"),
              (Lines{"2 Ann \"Annie\" Lee", "3 Bo;b x", "6 Cy", "7 : there is no name here"}));
    EXPECT_EQ(told("Ren\xE9\nBj\xF6rn\n\x8Alavka"), (Lines{"1 René", "2 Björn", "3 Šlavka"}));
    EXPECT_EQ(told("\xFF\xFE\x41\0n\0n\0\xEB\0\n\0\x3D\xD8\0\xDEz\0"s), (Lines{"1 Annë", "2 😀z"}));
    EXPECT_EQ(told(""), Lines{});
}

TEST(CsvTest, WhatIsWrittenCanDoNoHarmAndComesBack) {
    const Lines names{"=1+2",    "+Ann",  "-Ann", "@Ann", "'=x", "'Ann", "\"Ann\", the \"2nd\"",
                      "Ann;Ben", " Ann ", "",     "Zoë"};
    std::ostringstream file;
    CsvWriter csv(file);
    for (const std::string& name : names) csv.write({harmless(name), "x"});
    EXPECT_TRUE(file.str().starts_with("\xEF\xBB\xBF'=1+2,x\r\n'+Ann,x\r\n'-Ann,x\r\n'@Ann,x\r\n''=x,x\r\n"));
    Lines back;
    for (const CsvRow& row : read_csv(file.str())) back.push_back(without_harmlessness(row.cells.front()));
    EXPECT_EQ(back, names);
}

TEST_F(SchoolTest, EveryStepIsTakenBackToTheLetter) {
    add({"Ann", "Ben", "Zoë"});
    for (int i = 0; i < 3; ++i) plays(1, 7, 60, 40 + i);
    plays(2, 27, 0, 31);
    ASSERT_EQ(other_.run("UPDATE Hall_of_Fame SET TheDate = NULL, TimeTaken = 'long' WHERE Points = 41"), "");
    read();
    const Lines before = kept();

    EXPECT_EQ(why(desk_.rename(1, " Anna ")), "");
    read();
    EXPECT_EQ(why(desk_.remove({2, 1}, Results::GoToo, kNobodyWatches)), "");
    read();
    EXPECT_EQ(why(desk_.remove({3}, Results::Stay, kNobodyWatches)), "");
    read();
    EXPECT_EQ(kept(), Lines{});
    add({"Cy", "Di"});
    EXPECT_EQ(other_.rows("SELECT Pupil_ID FROM Pupils"), (Lines{"4", "5"})) << "numbers are never given twice";
    plays(5, 7, 60, 90);  // takes the row of Ann's first result

    EXPECT_EQ(desk_.next_undo(), "adding 2 pupils");
    EXPECT_EQ(undo(), "Taken back: adding 2 pupils, but for Di who has played since");
    EXPECT_EQ(undo(), "Taken back: removing Zoë");
    EXPECT_EQ(undo(), "Taken back: removing 2 pupils");
    EXPECT_EQ(undo(), "Taken back: renaming Ann to Anna");
    EXPECT_EQ(names(), (Lines{"Ann", "Ben", "Di", "Zoë"}));
    ASSERT_EQ(other_.run("DELETE FROM Pupils WHERE Pupil_ID = 5; DELETE FROM Hall_of_Fame WHERE Pupil_id = 5"), "");
    EXPECT_EQ(kept(), before);
    EXPECT_EQ(undo(), "Taken back: adding 3 pupils, but for 2 pupils who have played since");
    EXPECT_EQ(undo(), "there is nothing to take back");
}

TEST_F(SchoolTest, WhatFailsOrIsStoppedChangesNothingAndIsSaid) {
    add({"Ann", "Ben"});
    plays(1, 7, 60, 40);
    const Lines before = kept();
    EXPECT_EQ(why(desk_.add({"Cy", "ANN"}, kNobodyWatches)), "there is a pupil of that name already: ANN");
    EXPECT_EQ(why(desk_.add({"Cy", " "}, kNobodyWatches)), "there is no name here");
    EXPECT_EQ(why(desk_.rename(2, "ann")), "there is a pupil of that name already: ann");
    EXPECT_EQ(why(desk_.rename(2, "BEN")), "") << "only the case changes";
    EXPECT_EQ(undo(), "Taken back: renaming Ben to BEN");
    Lines many;
    for (int i = 0; i < 1000; ++i) many.push_back("Pupil " + std::to_string(i));
    EXPECT_EQ(why(desk_.add(many, [](auto done, auto of) { return done < 300 || of != 1000; })), "it was stopped");
    EXPECT_EQ(why(desk_.add(Lines(33'000, "x"), kNobodyWatches)), "there is a pupil of that name already: x");
    ASSERT_EQ(other_.run("INSERT INTO Pupils VALUES (9, 'Cy', 'cy')"), "");  // since the book was read
    EXPECT_EQ(why(desk_.add({"Bo", "cy"}, kNobodyWatches)),
              "'cy' can't be kept: there is a pupil of that name already");
    ASSERT_EQ(other_.run("DELETE FROM Pupils WHERE Pupil_ID IN (2, 9)"), "");
    EXPECT_EQ(why(desk_.rename(2, "Bo")), "Bo is not in the list of pupils any more");
    ASSERT_EQ(other_.run("INSERT INTO Pupils VALUES (2, 'Ben', 'ben'); BEGIN IMMEDIATE"), "");
    EXPECT_EQ(why(desk_.remove({1}, Results::GoToo, kNobodyWatches)), "another computer is using it");
    ASSERT_EQ(other_.run("COMMIT"), "");
    {
        const FailingDisk failing;
        EXPECT_EQ(why(desk_.clear({}, kNobodyWatches)), "the disk or the network drive does not answer as it should");
    }
    EXPECT_EQ(kept(), before);
    EXPECT_EQ(undo(), "Taken back: adding 2 pupils, but for Ann who has played since");
    EXPECT_EQ(desk_.next_undo(), std::nullopt);
}

TEST_F(SchoolTest, ResultsAreFoundSortedClearedAndExported) {
    add({"Ann", "=Ben"});
    plays(2, 7, 60, 40, "2025-09-01");
    plays(1, 27, 0, 31, "2026-03-09");
    plays(1, 7, 240, 40, "2026-03-10");
    plays(8, 111, 0, 30, "2026-03-11");  // a pupil who is gone, a game that is gone
    const auto listed = [&](const ResultFilter& filter, ResultColumn column, Order order) {
        auto places = results_that_fit(book_, filter);
        sort_results(book_, places, column, order);
        std::string rows;
        for (const auto place : places) rows += std::to_string(book_.results()[place].row);
        return rows;
    };
    using enum ResultColumn;
    EXPECT_EQ(listed({}, Pupil, Order::Ascending), "1234") << "= stands before A";
    EXPECT_EQ(listed({}, Pupil, Order::Descending), "4231");
    EXPECT_EQ(listed({}, Game, Order::Ascending), "2134") << "in the order of the list of games";
    EXPECT_EQ(listed({}, Points, Order::Descending), "1324");
    EXPECT_EQ(listed({}, Team, Order::Ascending), "2413");
    EXPECT_EQ(listed({.pupils = {1, 8}}, When, Order::Descending), "432");
    EXPECT_EQ(listed({.game = 7, .from = "2025-09-01", .to = "2026-03-09"}, When, Order::Ascending), "1");

    const auto file = folder_.path() / "results.csv";
    auto all = results_that_fit(book_, {});
    ASSERT_EQ(export_results(book_, all, file, kNobodyWatches), std::nullopt);
    const auto rows = read_csv(bytes_of(file));
    ASSERT_EQ(rows.size(), 5U);
    EXPECT_EQ(rows[1].cells, (CsvCells{"'=Ben", "Game of 7", "Red", "40", "", "0:32", "2025-09-01", "09:05"}));
    EXPECT_EQ(rows[4].cells,
              (CsvCells{"a removed pupil (8)", "Typing Test", "", "", "30", "0:38", "2026-03-11", "09:05"}));
    const std::string before = bytes_of(file);
    EXPECT_EQ(export_results(book_, all, file, [](auto, auto) { return false; }),
              "It was stopped, and nothing was written");
    {
        const FailingDisk failing;
        EXPECT_EQ(export_pupils(book_, file), "results.csv can't be written: the disk is full or does not answer");
    }
    EXPECT_EQ(bytes_of(file), before);
    EXPECT_FALSE(std::filesystem::exists(file.string() + ".part"));

    const Lines kept_before = kept();
    EXPECT_EQ(why(desk_.clear({.to = "2026-03-09"}, kNobodyWatches)), "");
    read();
    EXPECT_EQ(book_.results().size(), 2U);
    EXPECT_EQ(undo(), "Taken back: clearing results");
    EXPECT_EQ(kept(), kept_before);
    EXPECT_EQ(book_.results().size(), 4U);
}

TEST_F(SchoolTest, AdviceFollowsTheOrderOfTheGames) {
    add({"Ann"});
    const auto told = [&] { return advice(book_, standings(book_).front()); };
    EXPECT_EQ(told(), "Not played yet: begin with 1. Game of 30.");
    plays(1, 30, 60, 40);
    plays(1, 28, 0, 20);
    EXPECT_EQ(told(), "Next: 2. Game of 29.");
    EXPECT_EQ(standings(book_).front().best->points, 40) << "a typing test has seconds, not points";
    for (const int points : {30, 30, 20, 30}) plays(1, 7, 60, points);
    EXPECT_EQ(told(), "Stuck at Game of 7: try it in the Yellow team.");
    plays(1, 7, 60, 31);
    EXPECT_EQ(told(), "Next: 2. Game of 29.");
    for (int i = 0; i < 4; ++i) plays(1, 27, 0, 31);
    EXPECT_EQ(told(), "Stuck at Game of 27: go back to 3. Game of 28.");
    for (int game = 1; game < 30; ++game) plays(1, game, 120, game == 12 ? 55 : 60);
    EXPECT_EQ(told(), "All games are done; most is to be won in 1. Game of 30.");
    plays(1, 30, 120, 70);
    plays(1, 7, 120, 60);
    EXPECT_EQ(told(), "All games are done; most is to be won in 19. Game of 12 in the Red team.");
}

class WordSetTest : public StoreTest {
protected:
    static const SetKind& kind(const std::string& word) {
        return *std::ranges::find(set_kinds(), word, &SetKind::word);
    }
    WordSets::Set set(const std::string& word) { return sets_.read(kind(word)).value(); }
    /// As the games list them.
    Lines listed() { return walk(*rows("sortedgames"), "gamename"); }

    std::unique_ptr<ContentKeeper> keeper_ = engine_.open_content(name_).value();
    WordSets sets_{*keeper_, folder_.path() / "content"};
};

TEST_F(WordSetTest, EachFaultIsToldInItsCellAndOnlyAWholeSetIsKept) {
    const SetRows good = set("rhymes1").rows;
    ASSERT_EQ(good[0], (SetRow{"1", "Bal", "al"}));
    EXPECT_TRUE(faults_in(kind("rhymes1"), good).empty());
    SetRows bad = good;
    bad[1] = {"1", "Bral", "al"};
    bad[2] = {"x", "", "al"};
    Lines told;
    for (const auto& fault : faults_in(kind("rhymes1"), bad)) {
        told.push_back(std::to_string(fault.line) + (fault.column ? "/" + std::to_string(*fault.column) : "") + " " +
                       fault.reason);
    }
    EXPECT_EQ(told, (Lines{"2/1 Word 'Bral' should be one letter and the Ending 'al'",
                           "3/0 Group is 'x', but should be a number from 1 to 7", "3/1 Word is empty"}));
    EXPECT_EQ(why(sets_.keep(kind("rhymes1"), bad)), "in line 2 Word 'Bral' should be one letter and the Ending 'al'");
    EXPECT_EQ(set("rhymes1").rows, good);
    SetRows games = set("games").rows;
    for (SetRow& game : games) game[3] = "no";
    EXPECT_EQ(why(sets_.keep(kind("games"), games)), "no game is left in the list");
    games.pop_back();
    EXPECT_EQ(faults_in(kind("games"), games).front().reason, "there is no game with the Kind of game 1");
}

TEST_F(WordSetTest, ATeachersSetOutlivesEveryUpgradeUntilItIsGivenBack) {
    SetRows words = set("rhymes1").rows;
    words[0] = {"1", "cal", "al"};
    SetRows games = set("games").rows;
    std::swap(games[0][1], games[1][1]);
    games[0][2] = "Hunt";
    games[2][3] = "no";
    ASSERT_EQ(why(sets_.keep(kind("rhymes1"), words)), "");
    ASSERT_EQ(why(sets_.keep(kind("games"), games)), "");
    const Lines as_wished = listed();
    EXPECT_EQ(as_wished.size(), 29U);
    EXPECT_EQ(as_wished[0], "Game of 29");
    EXPECT_EQ(as_wished[1], "Hunt");

    ContentTables upgrade;
    auto& changed = upgrade.files["words-keystage1.tsv"];
    changed.replace(changed.find("bal"), 3, "mal");
    auto& sentences = upgrade.files["sentences-keystage1.tsv"];
    sentences.replace(sentences.find("Once"), 4, "Ones");
    auto& looks = upgrade.files["games.tsv"];
    looks.replace(looks.find("\t9\t"), 3, "\t5\t");
    upgrade.write(folder_.path() / "content");
    ASSERT_EQ(build_store(folder_.path() / "content", file_), Lines{});
    EXPECT_EQ(set("rhymes1").rows[0], (SetRow{"1", "Cal", "al"}));
    EXPECT_EQ(set("sentences1").rows[0][1], "Ones o the big dog ran.");
    EXPECT_EQ(listed(), as_wished);
    EXPECT_EQ(other_.rows("SELECT Panels FROM Templates WHERE Template_ID = 1"), Lines{"5"}) << "the rest is today's";
    EXPECT_TRUE(set("rhymes1").maker == Maker::Teacher && set("sentences1").maker == Maker::Marrowfen);

    ASSERT_EQ(why(sets_.go_back(kind("rhymes1"))), "");
    ASSERT_EQ(why(sets_.go_back(kind("games"))), "");
    EXPECT_EQ(set("rhymes1").rows[0], (SetRow{"1", "Mal", "al"}));
    EXPECT_EQ(listed().size(), 30U);
    EXPECT_EQ(listed()[0], "Game of 30");
    EXPECT_TRUE(set("games").maker == Maker::Marrowfen);
}

TEST_F(WordSetTest, ASetGoesOutToAFileAndComesBack) {
    SetRows sentences = set("sentences2").rows;
    sentences[0][1] = "\"Oh!\" said the big dog and ran.";
    const auto file = folder_.path() / "mine.tsv";
    for (const auto& [word, rows] : {std::pair{"sentences2", sentences}, {"games", set("games").rows}}) {
        ASSERT_EQ(write_set(kind(word), rows, file), std::nullopt);
        Faults faults;
        EXPECT_EQ(read_set(kind(word), file, faults), rows);
        EXPECT_EQ(faults.lines(), Lines{});
    }
    Faults faults;
    EXPECT_EQ(read_set(kind("rhymes1"), file, faults), SetRows{});
    EXPECT_FALSE(faults.none());
}

}  // namespace
}  // namespace marrowfen::test
