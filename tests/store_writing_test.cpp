// What is added to the data store and removed from it, and what several computers do at once.

#include "store_fixture.h"

namespace marrowfen::test {
namespace {

constexpr const char* kBusy = "another computer is using it";

TEST_F(StoreTest, APupilIsRemovedAndTheRestIsWalked) {
    for (const char* name : {"Ann", "Ben", "Cy"}) add_pupil(name);
    ASSERT_EQ(add_result(2, 60, 40, 5), std::nullopt);
    const auto pupils = rows("Pupils");
    EXPECT_TRUE(pupils->find_first("Pupil_ID=2 ").value());
    EXPECT_EQ(pupils->delete_row(), std::nullopt);
    EXPECT_EQ(pupils->field("PupilName"), Value{});
    EXPECT_NE(pupils->delete_row(), std::nullopt);  // nobody is chosen now
    EXPECT_EQ(walk(*pupils, "PupilName"), (std::vector<std::string>{"Ann", "Cy"}));
    EXPECT_TRUE(pupils->find_first("Pupil_ID=1").value());
    EXPECT_EQ(pupils->delete_row(), std::nullopt);
    EXPECT_TRUE(pupils->find_next("PupilName='CY'").value());
    EXPECT_EQ(pupils->delete_row(), std::nullopt);
    EXPECT_FALSE(pupils->move_first().value());
    EXPECT_EQ(walk(*rows("besttimes"), "Pupil_id"), std::vector<std::string>{"2"});
    EXPECT_NE(rows("SortedPupils")->delete_row(), std::nullopt);
    EXPECT_NE(rows("Templates")->delete_row(), std::nullopt);
}

TEST_F(StoreTest, GivesEachPupilANumberThatNobodyEverHad) {
    EXPECT_EQ(std::get<std::int64_t>(add_pupil("Ann")), 1);
    const auto abandoned = rows("Pupils");
    EXPECT_EQ(abandoned->add_row(), std::nullopt);
    abandoned->set_field("PupilName", "Nobody");
    EXPECT_EQ(as_text(abandoned->field("Pupil_ID")), "2");
    EXPECT_EQ(as_text(abandoned->field("PupilName")), "Nobody");
    EXPECT_TRUE(abandoned->move_first().value());  // gives the new row up, and with it the right to write
    EXPECT_EQ(as_text(abandoned->field("PupilName")), "Ann");
    EXPECT_NE(abandoned->update(), std::nullopt);
    EXPECT_EQ(rows("Pupils")->add_row(), std::nullopt);
    auto elsewhere = engine_.open(name_).value();
    EXPECT_EQ(std::get<std::int64_t>(add_pupil(*elsewhere, "Ben")), 2);
    EXPECT_EQ(std::get<std::int64_t>(add_pupil("Cy")), 3);
    const auto pupils = rows("Pupils");
    EXPECT_TRUE(pupils->find_first("PupilName='Cy'").value());
    EXPECT_EQ(pupils->delete_row(), std::nullopt);
    EXPECT_EQ(std::get<std::int64_t>(add_pupil("Di")), 4);
    EXPECT_EQ(other_.rows("SELECT Pupil_ID, PupilName FROM Pupils"),
              (std::vector<std::string>{"1|Ann", "2|Ben", "4|Di"}));
}

TEST_F(StoreTest, RefusesARowThatIsNotRightAndKeepsNothingOfIt) {
    const std::string long_name(48, 'x');
    EXPECT_EQ(add_pupil(long_name + "Ωë").index(), 0U);  // 50 letters in 52 bytes
    struct Case {
        const char* source;
        std::vector<std::pair<std::string, Value>> fields;
        std::string reason;
    };
    for (const Case& c : {
             Case{"Pupils", {{"PupilName", ""}}, "a name has 1 to 50 letters"},
             {"Pupils", {{"PupilName", long_name + "Ωëx"}}, "a name has 1 to 50 letters"},
             {"Pupils", {}, "the field PupilName was left empty"},
             {"Pupils", {{"PupilName", "Ann"}, {"Age", std::int64_t{7}}}, "the field Age of Pupils can't be set"},
             {"Pupils", {{"Pupil_ID", std::int64_t{9}}}, "the field Pupil_ID of Pupils can't be set"},
             {"Hall_of_Fame", {{"Pupil_id", std::int64_t{1}}}, "the field TimeTaken was left empty"},
             {"Templates", {{"GameName", "x"}}, "no rows can be added to Templates"},
             {"besttimes", {}, "no rows can be added to besttimes"},
         }) {
        const auto set = rows(c.source);
        auto failure = set->add_row();
        for (const auto& [field, value] : c.fields) set->set_field(field, value);
        if (!failure) failure = set->update();
        EXPECT_EQ(failure.value_or(StoreFailure{}).reason, c.reason) << c.source;
        EXPECT_NE(set->update(), std::nullopt);
        EXPECT_EQ(other_.run("BEGIN EXCLUSIVE; COMMIT"), "");
    }
    EXPECT_EQ(other_.rows("SELECT (SELECT count(*) FROM Pupils), (SELECT count(*) FROM Hall_of_Fame)").front(), "1|0");
    EXPECT_EQ(std::get<std::int64_t>(add_pupil("Ann")), 2);
    ASSERT_EQ(other_.run("UPDATE sqlite_sequence SET seq = 32766 WHERE name = 'Pupils'"), "");
    EXPECT_EQ(std::get<std::int64_t>(add_pupil("Zac")), 32767);
    EXPECT_EQ(std::get<std::string>(add_pupil("Zed")), "all 32767 pupil numbers have been used");
}

TEST_F(StoreTest, WaitsForAnotherComputerThatIsSoonDone) {
    SqliteStoreEngine engine(files_);
    const auto store = engine.open(name_).value();
    bool waited = false;
    engine.patience().on_wait = [&] {
        waited = true;
        other_.run("COMMIT");
    };
    engine.patience().begin_turn();
    ASSERT_EQ(other_.run("BEGIN EXCLUSIVE"), "");
    EXPECT_EQ(std::get<std::int64_t>(add_pupil(*store, "Ann")), 1);
    EXPECT_TRUE(waited);
}

TEST_F(StoreTest, SaysThatAnotherComputerIsWritingAndWorksAgainAfterwards) {
    std::vector<std::string> names{"Ann"};
    for (int i = 0; i < 30; ++i) names.push_back("Pupil " + std::to_string(i));  // more than are read at once
    add_at_once(names);
    const auto pupils = rows("Pupils");
    ASSERT_TRUE(pupils->move_first().value());
    EXPECT_EQ(other_.run("BEGIN EXCLUSIVE"), "");  // rows that are only looked at do not stand in the way
    const auto opened = engine_.open(name_);
    ASSERT_TRUE(opened.failure());
    EXPECT_EQ(opened.failure()->reason, kBusy);
    for (const auto& answer : {pupils->move_first(), pupils->move_forward(20), pupils->find_first("Pupil_ID=7"),
                               pupils->find_next("Pupil_ID=7")}) {
        ASSERT_TRUE(answer.failure());
        EXPECT_EQ(answer.failure()->reason, kBusy);
    }
    EXPECT_EQ(std::get<std::string>(add_pupil("Ben")), kBusy);
    EXPECT_EQ(add_result(1, 60, 40, 5).value_or(StoreFailure{}).reason, kBusy);
    EXPECT_EQ(pupils->delete_row().value_or(StoreFailure{}).reason, kBusy);
    EXPECT_EQ(as_text(pupils->field("PupilName")), "Ann") << "it stands where it stood";
    EXPECT_EQ(other_.run("COMMIT"), "");
    EXPECT_TRUE(pupils->move_forward(20).value());
    EXPECT_EQ(as_text(pupils->field("Pupil_ID")), "21");

    EXPECT_EQ(other_.run("BEGIN; SELECT * FROM Pupils"), "");  // a reader elsewhere: the last step, the commit, fails
    EXPECT_EQ(std::get<std::string>(add_pupil("Ben")), kBusy);
    EXPECT_EQ(other_.run("COMMIT"), "");
    {
        const FailingDisk failing;
        EXPECT_EQ(std::get<std::string>(add_pupil("Ben")),
                  "the disk or the network drive does not answer as it should");
    }
    EXPECT_EQ(std::get<std::int64_t>(add_pupil("Ben")), 32);
    EXPECT_EQ(add_result(1, 60, 40, 5), std::nullopt);
    names.emplace_back("Ben");
    EXPECT_EQ(walk(*pupils, "PupilName"), names);
}

}  // namespace
}  // namespace marrowfen::test
