#include <fstream>

#include "classroom.h"
#include "pupils/frmErrmsg.h"
#include "pupils/frmGames.h"
#include "pupils/frmSettings.h"
#include "results/frmHalloffame.h"
#include "store/store_builder.h"

namespace marrowfen {
namespace {

using Entries = std::vector<std::string>;

TEST(GameList, RemembersTheSwitchesForTheRun) {
    Classroom room;
    Pupil ann(room);
    ann.comes_in();
    for (const auto& [sound, phonics] :
         std::vector<std::pair<bool, bool>>{{false, true}, {false, false}, {true, false}}) {
        auto& list = room.form<frmGames>();
        if (room.state().SoundOn != sound) ann.press(sound ? list.sndOff : list.Snd_On);
        if (room.state().PhonicsOn != phonics) ann.press(phonics ? list.Phon_OFF : list.Phon_On);
        EXPECT_EQ(room.state().SoundOn, sound);
        EXPECT_EQ(room.state().PhonicsOn, phonics);
        ann.presses(&frmGames::BackDe);
        ann.sits_down("Ben");
        auto& again = room.form<frmGames>();
        EXPECT_EQ(again.control_at(again.Snd_On.bounds().centre()), sound ? &again.Snd_On : &again.sndOff);
        EXPECT_EQ(again.control_at(again.Phon_On.bounds().centre()), phonics ? &again.Phon_On : &again.Phon_OFF);
    }
}

TEST(GameList, EveryEntryOpensItsGameWhateverItsName) {
    Classroom room;
    Pupil ann(room);
    const auto content = room.folder.path() / "content";
    std::filesystem::copy(MARROWFEN_CONTENT_FOLDER, content);
    {
        std::ifstream given(std::filesystem::path(MARROWFEN_CONTENT_FOLDER) / "games.tsv");
        std::ofstream changed(content / "games.tsv");
        for (std::string line; std::getline(given, line); changed << line << '\n') {
            if (line.find_first_of("123456789") != 0) continue;
            const auto name = line.find('\t', line.find('\t') + 1) + 1;
            line.replace(name, line.find('\t', name) - name, "No. " + line.substr(0, line.find('\t')) + ". Ten");
        }
    }
    ASSERT_EQ(build_store(content, room.folder.path() / "data.mdb"), Entries{});

    ann.comes_in();
    const Entries entries = room.form<frmGames>().List1.entries();
    ASSERT_EQ(entries.size(), 30U);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const std::string wanted =
            room.look_up("Templates", "Template_ID", where_number("GameNumber", static_cast<std::int64_t>(i + 1)));
        EXPECT_EQ(entries[i], std::to_string(i + 1) + ". No. " + wanted + ". Ten");
        ann.selects(room.form<frmGames>().List1, entries[i]);
        ann.presses_enter();
        EXPECT_FALSE(room.is_open(FormId::frmGames)) << "Enter does what a double click does";
        EXPECT_EQ(room.state().TemplateID, as_whole(wanted)) << entries[i];
        room.program.forms.unload({FormId::frmSettings, FormId::frmTypingTest});
        room.program.forms.show(FormId::frmGames);
    }
}

TEST(GameList, NothingHappensWithoutAChoice) {
    Classroom room;
    Pupil ann(room);
    ann.comes_in();
    auto& list = room.form<frmGames>().List1;
    ann.selects(list, ann.entry_of(9));
    ann.presses(&frmGames::hall_De);
    ann.joins(kRedTeam);
    ann.presses(&frmHalloffame::AnotherDe);
    ann.presses_enter();
    EXPECT_EQ(room.message(), "");
    ann.double_clicks_below(room.form<frmGames>().List1);
    EXPECT_EQ(room.message(), "Please choose a game from the list.");
    ann.presses(&frmErrmsg::ContinueDe);
    ann.presses(&frmGames::hall_De);
    EXPECT_EQ(room.message(), "Please choose a game from the list before viewing its high score table.");
    EXPECT_EQ(room.state().TemplateID, 9);
    EXPECT_TRUE(room.state().HallViewOnly) << "it lasts until the next game is begun";
}

TEST(GameList, ShowsTheHallOfFameOfATeamOrOfATypingTest) {
    Classroom room;
    Pupil ann(room);
    ann.comes_in();
    const auto view = [&](int game) {  // gives the name of the game
        auto& list = room.form<frmGames>().List1;
        ann.selects(list, ann.entry_of(game));
        const std::string entry = list.text();
        ann.presses(&frmGames::hall_De);
        return entry.substr(entry.find(". ") + 2);
    };
    for (const auto& [game, title] : std::vector<std::pair<int, std::string>>{
             {2, "Green Team Hall Of Fame"}, {27, " Team Hall Of Fame"}, {28, " Team Hall Of Fame"}}) {
        const std::string name = view(game);
        if (room.is_open(FormId::frmSettings)) {
            EXPECT_EQ(room.form<frmSettings>().lblIT.Caption,
                      "Please select a team colour to view the high score table for " + name);
            ann.joins(kGreenTeam);
        }
        auto& hall = room.form<frmHalloffame>();
        EXPECT_EQ(hall.Label1.Caption, title) << game;
        EXPECT_EQ(hall.Label17.Caption, name);
        EXPECT_FALSE(hall.PlayAgainDe.Visible || hall.PlayAgainPr.Visible);
        ann.presses(&frmHalloffame::AnotherDe);
    }
    EXPECT_EQ(room.state().TimeLimit, 0);
    ann.picks_game(2);
    EXPECT_EQ(room.form<frmSettings>().lblIT.Caption, "click your mouse on your team colour.");
    ann.joins(kRedTeam);
    EXPECT_TRUE(room.is_open(FormId::frmSimpleKeyBoard)) << "a game that is played after a view is played";
}

}  // namespace
}  // namespace marrowfen
