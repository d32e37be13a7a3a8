#include "lesson.h"
#include "pupils/frmDeletePupils.h"
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

TEST(NewPupil, WhoHasOnlyAFingerWritesTheNameOnTheScreen) {
    Classroom room;
    Pupil zoe(room);
    room.start();
    const auto touches = [&](const Control& control) {
        zoe.thinks();
        room.display.touch(centre_on_screen(control));
        room.display.release(centre_on_screen(control));
    };
    touches(room.form<frmSelectGame>().NewPlay_De);
    for (const char* letter : {"Z", "o", "e", "é", "é", "é", "é"}) {
        const Form& letters = *room.desktop.visible_forms().back();
        const auto key = std::ranges::find_if(letters.controls(), [&](Control* control) {
            return as<Label>(control) != nullptr && as<Label>(control)->Caption == letter;
        });
        ASSERT_NE(key, letters.controls().end()) << letter;
        touches(**key);
    }
    touches(room.form<frmNewPupil>().NextDe);
    EXPECT_EQ(room.look_up("Pupils", "PupilName", "Pupil_ID=" + std::to_string(room.state().PupilID)), "Zoë");
    EXPECT_EQ(room.open_forms().back(), FormId::frmGames) << "and the letters have gone";
    EXPECT_EQ(room.desktop.visible_forms().back(), &room.form<frmGames>());
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

TEST(GameList, KeepsTheSwitchesWhenItComesBack) {
    Lesson lesson;
    lesson.ann.presses(&frmGames::Snd_On);
    lesson.switches(Phonics::Off);
    lesson.ann.presses(&frmGames::BackDe);
    lesson.ann.sits_down("Ann");
    EXPECT_FALSE(lesson.room.state().SoundOn);
    EXPECT_FALSE(lesson.room.state().PhonicsOn);
    EXPECT_TRUE(lesson.room.form<frmGames>().sndOff.Visible);
}

TEST(GameList, OpensTheGameOfAnEntryWhateverItsName) {
    Lesson lesson;
    Classroom& room = lesson.room;
    lesson.spoil_store("UPDATE Templates SET GameName='No. ' || Template_ID || '. Ten'");
    lesson.ann.presses(&frmGames::BackDe);
    lesson.ann.sits_down("Ann");
    const Entries entries = room.form<frmGames>().List1.entries();
    ASSERT_EQ(entries.size(), 30U);
    for (const std::string& entry : entries) {
        lesson.ann.selects(room.form<frmGames>().List1, entry);
        lesson.ann.presses_enter();
        EXPECT_FALSE(room.is_open(FormId::frmGames)) << "Enter does what a double click does";
        EXPECT_TRUE(entry.ends_with(". No. " + std::to_string(room.state().TemplateID) + ". Ten")) << entry;
        room.program.forms.unload({FormId::frmSettings, FormId::frmTypingTest});
        room.program.forms.show(FormId::frmGames);
    }
}

}  // namespace
}  // namespace marrowfen
