#include "classroom.h"
#include "pupils/frmDeletePupils.h"
#include "pupils/frmErrmsg.h"
#include "pupils/frmGames.h"
#include "pupils/frmNewPupil.h"
#include "pupils/frmSelectGame.h"

namespace marrowfen {
namespace {

using Entries = std::vector<std::string>;

const Entries kNobody;
const Entries kUnusualNames{
    std::string(50, 'm'), "O'Neil", "''", "Ann \"Annie\" B", "Bo - 7", "Łukasz", "Ζωή", "李小龍", "Zoë 😀", "%_*"};

TEST(PupilList, AnEmptyListLeadsOnOnlyToNewPlayersAndTheExit) {
    Classroom room(kNobody);
    Pupil ann(room);
    room.start();
    const auto& list = room.form<frmSelectGame>().cmbPupils;
    EXPECT_TRUE(list.entries().empty());
    EXPECT_EQ(list.Text, "");
    EXPECT_EQ(room.display.tell(KeyDown{.character = U'A'}), Taker::Nobody) << "the box takes no key";
    ann.presses_alt_d();
    EXPECT_TRUE(room.form<frmDeletePupils>().lbkids.entries().empty());
}

TEST(PupilList, StandsInTheOrderOfTheAlphabetAndShowsWhoPlayedLast) {
    Classroom room({"zoe", "Ann", "Łukasz", "ben"});
    Pupil ann(room);
    room.start();
    auto& list = room.form<frmSelectGame>().cmbPupils;
    EXPECT_EQ(list.entries().front(), "Ann");
    EXPECT_EQ(list.entries()[1], "ben") << "small letters stand among the capitals";
    EXPECT_EQ(list.Text, "Ann");
    EXPECT_EQ(room.state().PupilID, 0) << "the first name stands there, yet nobody has chosen";
    ann.sits_down("zoe");
    ann.presses(&frmGames::BackDe);
    EXPECT_EQ(list.Text, "zoe");
    ann.sits_down("zoe");
    EXPECT_TRUE(room.is_open(FormId::frmGames)) << "also by a click on the name that stands in the box";
}

TEST(PupilList, TakesAnyNameThatAPupilCanHave) {
    Classroom room({"Ann"});
    Pupil pupil(room);
    room.start();
    for (const std::string& name : kUnusualNames) {
        SCOPED_TRACE(name);
        pupil.presses(&frmSelectGame::NewPlay_De);
        pupil.types(name);
        pupil.presses(&frmNewPupil::NextDe);
        ASSERT_TRUE(room.is_open(FormId::frmGames)) << room.message();
        const auto id = room.state().PupilID;
        EXPECT_GT(id, 0);
        pupil.presses(&frmGames::BackDe);
        EXPECT_EQ(room.form<frmSelectGame>().cmbPupils.Text, name);
        pupil.sits_down("Ann");
        EXPECT_NE(room.state().PupilID, id);
        pupil.presses(&frmGames::BackDe);
        pupil.sits_down(name);
        EXPECT_EQ(room.state().PupilID, id);
        EXPECT_EQ(room.message(), "");
        pupil.presses(&frmGames::BackDe);
    }
    EXPECT_EQ(room.form<frmSelectGame>().cmbPupils.entries().size(), kUnusualNames.size() + 1);
}

TEST(NewPupil, IsRefusedWithoutANameOrWithOneThatIsTaken) {
    struct Case {
        std::string typed, says;
    };
    const std::vector<Case> cases{{"", "Please type in your name"},
                                  {"  \u00A0", "Please type in your name"},
                                  {"\u200B\u3164\u2800", "Please type in your name"},
                                  {"Zoë", "This pupil has already been entered"},
                                  {"ZOË", "This pupil has already been entered"},
                                  {"o'neil", "This pupil has already been entered"}};
    Classroom room({"Zoë", "O'Neil"});
    Pupil pupil(room);
    room.start();
    for (const Case& c : cases) {
        pupil.presses(&frmSelectGame::NewPlay_De);
        EXPECT_EQ(room.form<frmNewPupil>().txtpupilname.Text, "") << "what was typed at an earlier visit is gone";
        pupil.types(c.typed);
        pupil.presses_enter();
        EXPECT_EQ(room.message(), c.says) << c.typed;
        pupil.types("x");
        pupil.presses(&frmErrmsg::ContinueDe);
        EXPECT_EQ(room.form<frmNewPupil>().txtpupilname.Text, c.typed) << "the text stays, and takes no keys meanwhile";
        EXPECT_EQ(room.state().PupilID, 0);
        pupil.presses(&frmNewPupil::BackDe);
    }
    EXPECT_EQ(room.form<frmSelectGame>().cmbPupils.entries(), (Entries{"O'Neil", "Zoë"}));
}

TEST(NewPupil, MayTypeFiftyLettersAndNoMore) {
    Classroom room(kNobody);
    Pupil pupil(room);
    room.start();
    pupil.presses(&frmSelectGame::NewPlay_De);
    for (int i = 0; i < 60; ++i) pupil.types("ł");
    pupil.presses_enter();
    EXPECT_TRUE(room.is_open(FormId::frmGames)) << "Enter goes on as the button does; " << room.message();
    pupil.presses(&frmGames::BackDe);
    EXPECT_EQ(room.form<frmSelectGame>().cmbPupils.Text->size(), 50 * std::string_view("ł").size());
}

TEST(PupilList, TellsWhoClicksANameThatIsGone) {
    Classroom room({"Ann", "Ben"});
    Pupil ben(room);
    room.start();
    {
        const auto another_computer = room.store().open("Pupils");
        EXPECT_TRUE(another_computer->find_first(where_text("PupilName", "Ben")).value());
        EXPECT_FALSE(another_computer->delete_row());
    }
    ben.sits_down("Ben");
    EXPECT_EQ(room.message(), "There is no pupil with that name, if you have not played before click new player");
    EXPECT_EQ(room.state().PupilID, 0);
    ben.presses(&frmErrmsg::ContinueDe);
    EXPECT_EQ(room.open_forms(), (std::vector{FormId::frmBackGround, FormId::frmGames}));

    ben.presses(&frmGames::BackDe);
    ben.sits_down("Ann");
    ben.presses(&frmGames::BackDe);
    auto& list = room.form<frmSelectGame>();
    list.cmbPupils.Text = "";
    EXPECT_FALSE(list.RunGame());
    EXPECT_EQ(room.message(), "Please choose your name from the list above");
    EXPECT_EQ(room.state().PupilID, 1);
}

TEST(Removal, TakesTheMarkedPupilAloneAndAtOnce) {
    Classroom room({"Ann", "Bo - 7", "Cleo"});
    Pupil teacher(room);
    room.start();
    teacher.sits_down("Bo - 7");
    teacher.presses(&frmGames::BackDe);
    room.display.tell(KeyDown{.key = Key::D, .character = U'd'});
    EXPECT_TRUE(room.is_open(FormId::frmSelectGame)) << "D alone does nothing";
    teacher.presses_alt_d();
    auto& list = room.form<frmDeletePupils>().lbkids;
    EXPECT_EQ(list.entries(), (Entries{"1 - Ann", "2 - Bo - 7", "3 - Cleo"}));
    teacher.selects(list, "2 - ");
    teacher.presses(&frmDeletePupils::DeleteDe);
    EXPECT_EQ(list.entries(), (Entries{"1 - Ann", "3 - Cleo"}));
    teacher.presses(&frmDeletePupils::DeleteDe);
    EXPECT_EQ(room.message(), "Please highlight a name from the list before trying to delete.");
    teacher.presses(&frmErrmsg::ContinueDe);
    teacher.presses(&frmDeletePupils::CloseDe);
    const auto& pupils = room.form<frmSelectGame>().cmbPupils;
    EXPECT_EQ(pupils.entries(), (Entries{"Ann", "Cleo"}));
    EXPECT_EQ(pupils.Text, "0") << "the pupil who played last is nobody now";
    teacher.sits_down("Cleo");
    EXPECT_EQ(room.state().PupilID, 3);
}

TEST(Removal, OfTheLastPupilLeavesAListThatStillWorksAndANumberThatIsNotUsedAgain) {
    Classroom room({"Ann"});
    Pupil teacher(room);
    room.start();
    teacher.presses_alt_d();
    auto& list = room.form<frmDeletePupils>().lbkids;
    teacher.selects(list, "1 - Ann");
    teacher.presses(&frmDeletePupils::DeleteDe);
    EXPECT_TRUE(list.entries().empty());
    teacher.presses(&frmDeletePupils::DeleteDe);
    EXPECT_NE(room.message(), "");
    teacher.presses(&frmErrmsg::ContinueDe);
    teacher.presses(&frmDeletePupils::CloseDe);
    EXPECT_EQ(room.form<frmSelectGame>().cmbPupils.Text, "");
    teacher.presses(&frmSelectGame::NewPlay_De);
    teacher.types("Ann");
    teacher.presses_enter();
    EXPECT_EQ(room.state().PupilID, 2) << "old results must not show under the new pupil's name";
}

TEST(Message, StaysActiveAndOnTopWhileTheFormBelowLives) {
    Classroom room;
    Pupil ann(room);
    ann.comes_in();
    ann.presses(&frmGames::hall_De);
    auto& message = room.form<frmErrmsg>();
    const auto stays = [&] {
        EXPECT_EQ(room.desktop.active(), &message);
        EXPECT_EQ(message.focus(), &message.Text1);
        EXPECT_EQ(room.desktop.visible_forms().back(), &message);
    };
    ann.press(room.form<frmGames>().Label1);
    stays();
    ann.presses(&frmGames::Snd_On);
    stays();
    EXPECT_FALSE(room.state().SoundOn);
    ann.selects(room.form<frmGames>().List1, ann.entry_of(9));
    stays();
    ann.types("abc");
    ann.presses_enter();
    stays();
    ann.presses(&frmErrmsg::ContinueDe);
    EXPECT_EQ(room.desktop.active(), &room.form<frmGames>());
    EXPECT_EQ(room.form<frmGames>().List1.selected_count(), 0U) << "a list under a message takes nothing";
}

}  // namespace
}  // namespace marrowfen
