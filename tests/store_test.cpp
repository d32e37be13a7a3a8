// Looking up, walking and searching in the data store, on real files.

#include <random>

#include "platform/sqlite/query_text.h"
#include "store_fixture.h"

namespace marrowfen::test {
namespace {

TEST_F(StoreTest, LooksUpInEverySpellingAndNothingElse) {
    ASSERT_EQ(add_pupil("Ann"), (std::variant<std::int64_t, std::string>{1}));
    struct Case {
        const char *source, *field, *criterion, *answer;
    };
    for (const Case& c : {
             Case{"Pupils", "PupilName", "Pupil_ID=1", "Ann"},
             {"Pupils", "Pupil_ID", "PupilName='aNN'", "1"},
             {"SortedPupils", "Pupilname", " pupilname = 'ann' ", "Ann"},
             {"templates", "Template_id", "GameNumber=29", "2"},
             {"Templates", "gamename", "Template_ID=30", "Game of 30"},
             {"Templates", "pic36", "Template_ID=3", "thingdf"},
             {"Templates", "pic1", "Template_ID=2", ""},
             {"Templates", "background", "Template_ID=3", "-1"},
             {"Templates", "Split", "Template_ID=30", "0"},
             {"sortedgames", "GameType", "GameNumber=1", "30"},
             {"Words_Keystage1", "ID", "Word='Bal'", "1"},
             {"Words_Keystage2", "end", "id=9 And word='JAT'", "at"},
             {"Words_Keystage2", "Word", "end='at'aNd id=9", "Bat"},
             {"Sentences_Keystage2", "NOUN", "sen_id=6", "dog"},
             // not there
             {"Pupils", "PupilName", "Pupil_ID=2", "0"},
             {"Words_Keystage1", "ID", "Word='ba'", "0"},
             {"Words_Keystage1", "ID", "id=1 And id=2", "0"},
             // not understood, or not meant kindly
             {"Pupils", "Pupil_ID", "PupilName=Ann", "0"},
             {"Pupils", "Pupil_ID", "PupilName='Ann", "0"},
             {"Pupils", "Pupil_ID", "PupilName='Ann' Or 1=1", "0"},
             {"Pupils", "Pupil_ID", "PupilName=''; DROP TABLE Pupils; --'", "0"},
             {"Pupils", "Pupil_ID", "PupilName_folded='ann'", "0"},
             {"Pupils", "Pupil_ID", "Pupil_ID=", "0"},
             {"Pupils", "Pupil_ID", "Pupil_ID='1'", "0"},
             {"Pupils", "Pupil_ID", "Pupil_ID=1.0", "0"},
             {"Pupils", "Pupil_ID", "Pupil_ID=1 And", "0"},
             {"Pupils", "Pupil_ID", "Pupil_ID=1And Pupil_ID=1", "0"},
             {"Pupils", "Pupil_ID", "Pupil_ID=99999999999999999999", "0"},
             {"Pupils] UNION SELECT 1 --", "Pupil_ID", "Pupil_ID=1", "0"},
             {"sqlite_master", "name", "name='Pupils'", "0"},
         }) {
        EXPECT_EQ(as_text(lookup(c.source, c.field, c.criterion)), c.answer) << c.source << ": " << c.criterion;
    }
    EXPECT_EQ(rows("Pupils")->field("PupilName_folded"), Value{});
    const auto teachers = rows("Teachers")->move_first();
    EXPECT_TRUE(teachers.failure());
    EXPECT_EQ(other_.rows("SELECT PupilName FROM Pupils"), std::vector<std::string>{"Ann"});
}

TEST_F(StoreTest, KnowsAPupilByNameInAnyCaseAndEncoding) {
    struct Case {
        const char *name, *asked, *stranger;
    };
    std::int64_t id = 0;
    for (const Case& c : {Case{"Zoë", "ZOË", "Zoe"},
                          {"Rene\u0301e", "RENÉE", "Renee"},
                          {"Łukasz", "łUKASZ", "Lukasz"},
                          {"Ωmega", "ωMEGA", "Omega"},
                          {"O'Brien", "o''brien", "o'brien"},
                          {"''", "''''", "''"},
                          {"Strauß", "STRAUSS", "Straus"},
                          {"  ", "  ", " "},
                          {"\xFFx", "\xFFx", "\xFFX"},
                          {"x' Or 'a'='a", "X'' oR ''A''=''A", "x"}}) {
        ASSERT_EQ(std::get<std::int64_t>(add_pupil(c.name)), ++id) << c.name;
        EXPECT_EQ(as_text(lookup("Pupils", "PupilName", "PupilName='" + std::string(c.asked) + "'")), c.name);
        EXPECT_EQ(lookup("Pupils", "Pupil_ID", "PupilName='" + std::string(c.stranger) + "'"), Value{std::int64_t{0}});
        EXPECT_EQ(std::get<std::string>(add_pupil(c.name)), "there is a pupil of that name already");
    }
    EXPECT_EQ(std::get<std::string>(add_pupil("zOE\u0308")), "there is a pupil of that name already");
    for (const char* name : {"anna", "Luke", "Lucy", "Renard", "Ren", "Øyvind", "Oz"}) add_pupil(name);
    EXPECT_EQ(walk(*rows("SortedPupils"), "PUPILNAME"),
              (std::vector<std::string>{"  ", "''", "anna", "Lucy", "Łukasz", "Luke", "O'Brien", "Øyvind", "Oz", "Ren",
                                        "Renard", "Rene\u0301e", "Strauß", "x' Or 'a'='a", "Zoë", "Ωmega", "\xFFx"}))
        << "by the base letter";
}

TEST_F(StoreTest, WalksAsFarAsThereAreRows) {
    const auto nobody = rows("Pupils");
    EXPECT_FALSE(nobody->move_forward(0).value());
    EXPECT_FALSE(nobody->move_first().value());
    EXPECT_FALSE(nobody->move_next().value());

    constexpr int kPupils = 100;  // several pages
    std::vector<std::string> names(kPupils);
    for (int i = 0; std::string & name : names) name = "Pupil " + std::to_string(999 - i++);
    add_at_once(names);
    const auto pupils = rows("Pupils");
    EXPECT_TRUE(pupils->move_next().value());
    EXPECT_EQ(as_text(pupils->field("Pupil_ID")), "2") << "opened, it stands on the first row";
    EXPECT_EQ(walk(*pupils, "PupilName"), names);
    EXPECT_EQ(pupils->field("PupilName"), Value{});
    for (const auto& [steps, id] :
         {std::pair{0, "1"}, {1, "2"}, {99, "100"}, {100, ""}, {std::numeric_limits<int>::max(), ""}}) {
        ASSERT_TRUE(pupils->move_first().value());
        EXPECT_EQ(pupils->move_forward(steps).value(), !std::string(id).empty());
        EXPECT_EQ(as_text(pupils->field("Pupil_ID")), id);
    }
    std::ranges::reverse(names);
    EXPECT_EQ(walk(*rows("SortedPupils"), "Pupilname"), names);
    EXPECT_EQ(walk(*rows("sortedgames"), "gamename").front(), "Game of 30");
}

/// Every mixture of moves and searches must end on the row that a plain list of all rows would give.
TEST_F(StoreTest, MixedMovesAndSearchesEndWhereAListWould) {
    constexpr int kResults = 60;
    for (int i = 0; i < kResults; ++i) ASSERT_EQ(add_result(i, i % 3 * 60, i * 7 % 20, 1 + i % 2), std::nullopt);
    using Record = std::map<std::string, std::string>;
    const std::vector<std::string> criteria{"GameID=1",  "gameid = 2",       "timelimit =60 And GameID=1",
                                            "Points=14", "TimeTaken='0:35'", "GameID=77"};
    const std::vector<Record> wanted{
        {{"GameID", "1"}},  {{"GameID", "2"}},       {{"TimeLimit", "60"}, {"GameID", "1"}},
        {{"Points", "14"}}, {{"TimeTaken", "0:35"}}, {{"GameID", "77"}}};
    for (const char* source : {"Hall_of_Fame", "besttimes"}) {
        const auto set = rows(source);
        std::vector<Record> all;
        for (auto row = set->move_first(); row.value(); row = set->move_next()) {
            Record& record = all.emplace_back();
            for (const char* f : {"GameID", "TimeLimit", "Points", "TimeTaken", "Pupil_id"}) {
                record[f] = as_text(set->field(f));
            }
        }
        ASSERT_EQ(all.size(), kResults);
        std::minstd_rand dice(20);
        std::size_t here = all.size();
        for (int turn = 0; turn < 2000; ++turn) {
            const auto search = dice() % criteria.size();
            const auto find_from = [&](std::size_t from) {
                for (here = from; here < all.size(); ++here) {
                    const auto same = [&](const auto& pair) { return all[here].at(pair.first) == pair.second; };
                    if (std::ranges::all_of(wanted[search], same)) break;
                }
            };
            bool on_a_row = false;
            const auto action = here == all.size() ? 2 * (dice() % 2) : dice() % 5;
            if (action == 0) {
                on_a_row = set->move_first().value();
                here = 0;
            } else if (action == 1) {
                const auto steps = dice() % 9;
                on_a_row = set->move_forward(static_cast<std::int64_t>(steps)).value();
                here = std::min(here + steps, all.size());
            } else if (action == 2) {
                on_a_row = set->find_first(criteria[search]).value();
                find_from(0);
            } else {
                on_a_row = set->find_next(criteria[search]).value();
                find_from(here + 1);
            }
            ASSERT_EQ(as_text(set->field("Pupil_id")), here < all.size() ? all[here]["Pupil_id"] : "") << turn;
            ASSERT_EQ(on_a_row, here < all.size()) << criteria[search];
        }
    }
}

TEST_F(StoreTest, RanksTheBestFirstWithoutSorting) {
    struct Result {
        int pupil, limit, points, game;
    };
    for (const Result& r : {Result{1, 60, 40, 5},
                            {2, 60, 70, 5},
                            {3, 60, 40, 5},
                            {4, 60, 99, 6},
                            {5, 120, 80, 5},
                            {6, 60, 100, 5},
                            {7, 60, 0, 5},
                            {8, 0, 83, 27},
                            {9, 0, 31, 27},
                            {10, 0, 83, 27}}) {
        ASSERT_EQ(add_result(r.pupil, r.limit, r.points, r.game), std::nullopt);
    }
    const auto ranked = [this](const std::string& list, const std::string& same_list) {
        std::vector<std::string> pupils;
        const auto best = rows("besttimes");
        for (auto row = best->find_first(list); row.value(); row = best->find_next(same_list)) {
            pupils.push_back(as_text(best->field("Pupil_id")));
        }
        return pupils;
    };
    EXPECT_EQ(ranked("GameID=5 And timelimit =60", "GameId=5 And timelimit =60"),
              (std::vector<std::string>{"6", "2", "1", "3", "7"}));
    EXPECT_EQ(ranked("GameID=27 And timelimit =0", "GameId=27 And timelimit =0"),
              (std::vector<std::string>{"9", "8", "10"}));

    const auto best = rows("besttimes");
    ASSERT_TRUE(best->find_first("GameID=5 And timelimit =120").value());
    EXPECT_EQ(best->field("TheDate"), Value(std::chrono::year_month_day{2026y, std::chrono::March, 9d}));
    EXPECT_EQ(as_text(best->field("TimeTaken")), "0:35");
    const auto hall = rows("Hall_of_Fame");
    ASSERT_TRUE(hall->move_first().value());
    EXPECT_EQ(hall->field("timeplayed"), Value(std::chrono::seconds(9h + 5min + 1s)));
    ASSERT_EQ(other_.run("UPDATE Hall_of_Fame SET TheDate = CASE Pupil_id WHEN 5 THEN NULL ELSE 'soon' END"), "");
    ASSERT_TRUE(best->find_first("GameID=5 And timelimit =120").value() && hall->move_first().value());
    EXPECT_EQ(best->field("TheDate"), Value{});
    EXPECT_EQ(as_text(hall->field("TheDate")), "soon");

    for (const auto& [source, criterion, index] :
         {std::tuple{"besttimes", "GameID=5 And timelimit =60", "SEARCH Hall_of_Fame USING INDEX Hall_of_Fame_best"},
          {"Pupils", "PupilName='x'", "SEARCH Pupils USING INDEX Pupils_PupilName"},
          {"Words_Keystage1", "word='x'", "SEARCH Words_Keystage1 USING INDEX Words_Keystage1_word"},
          {"Words_Keystage2", "id=4", "SEARCH Words_Keystage2 USING INDEX Words_Keystage2_id"}}) {
        const Source& asked = *find_source(source);
        const auto plan = other_.rows("EXPLAIN QUERY PLAN " + select_text(asked, parse_criterion(criterion, asked)));
        ASSERT_EQ(plan.size(), 1U) << source;  // a second step would be a sort
        EXPECT_NE(plan.front().find(index), std::string::npos) << plan.front();
    }
}

TEST_F(StoreTest, RowsOutliveTheStoreThatOpenedThem) {
    std::vector<std::string> names(40);
    for (int i = 0; std::string & name : names) name = "Pupil " + std::to_string(i++);
    add_at_once(names);
    const auto pupils = rows("Pupils");
    store_.reset();
    EXPECT_EQ(walk(*pupils, "PupilName"), names);
}

}  // namespace
}  // namespace marrowfen::test
