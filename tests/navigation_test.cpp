#include <algorithm>

#include "board/frmSimpleKeyBoard.h"
#include "classroom.h"
#include "pupils/frmDeletePupils.h"
#include "pupils/frmErrmsg.h"
#include "pupils/frmGames.h"
#include "pupils/frmNewPupil.h"
#include "pupils/frmSelectGame.h"
#include "pupils/frmSettings.h"
#include "results/frmHalloffame.h"
#include "results/frmScore.h"
#include "results/frmTimeUp.h"
#include "typing/frmTypingTest.h"

namespace marrowfen {
namespace {

using Id = FormId;

constexpr int kTiles = 7;
constexpr int kRhymes = 1;
constexpr int kPictures = 13;
constexpr int kSentences = 25;
constexpr int kFirstLetters = 26;
constexpr int kTypingTest = 27;

// Where pupils are when something happens.
void first_screen(Seat& seat) { seat.room.start(); }
void new_pupil(Seat& seat) { first_screen(seat), seat.ann.presses(&frmSelectGame::NewPlay_De); }
void removal(Seat& seat) { first_screen(seat), seat.ann.presses_alt_d(); }
void games(Seat& seat) { seat.ann.comes_in(); }
template <int id>
void team_choice(Seat& seat) {
    games(seat), seat.ann.picks_game(id);
}
template <int id>
void board(Seat& seat) {
    team_choice<id>(seat), seat.ann.joins(kRedTeam);
}
template <int id>
void play(Seat& seat) {
    board<id>(seat), seat.ann.starts_the_clock();
}
void time_up(Seat& seat) { play<kTiles>(seat), seat.room.seconds_pass(60); }
void score(Seat& seat) { play<kTiles>(seat), seat.ann.fills_keys(36); }
void hall(Seat& seat) { score(seat), seat.ann.presses(&frmScore::HallDe); }
void typed_sentence(Seat& seat) {
    team_choice<kTypingTest>(seat), seat.ann.types("the quick brown fox jumps over the lazy dog");
}
void typing_hall(Seat& seat) { typed_sentence(seat), seat.ann.presses(&frmScore::HallDe); }
template <int id>
void view(Seat& seat) {
    games(seat);
    seat.ann.selects(seat.room.form<frmGames>().List1, seat.ann.entry_of(id));
    seat.ann.presses(&frmGames::hall_De);
}

// What happens.
template <auto button>
void press(Seat& seat) {
    seat.ann.presses(button);
}
void nothing(Seat&) {}
void join(Seat& seat) { seat.ann.joins(kBlueTeam); }
void last_second(Seat& seat) { seat.room.seconds_pass(60); }
void type_a_name(Seat& seat) { seat.ann.types("Cleo"), seat.ann.presses(&frmNewPupil::NextDe); }
void double_click(Seat& seat) { seat.ann.double_clicks_below(seat.room.form<frmGames>().List1); }

struct Row {
    const char* from;
    void (*there)(Seat&);
    void (*happens)(Seat&);
    std::vector<FormId> open;  ///< in the order of the enumeration; the backdrop is always there
    bool list_waits = true;    ///< the pupil list is hidden, with all that it holds
};

const std::vector<Row> kRows{
    {"start-up", first_screen, nothing, {Id::frmSelectGame}},
    {"a name in the list", games, nothing, {Id::frmGames}},
    {"New player", new_pupil, nothing, {Id::frmNewPupil}},
    {"Alt+D", removal, nothing, {Id::frmDeletePupils}, false},
    {"new pupil, Back", new_pupil, press<&frmNewPupil::BackDe>, {Id::frmSelectGame}},
    {"new pupil, a good name", new_pupil, type_a_name, {Id::frmGames}},
    {"new pupil, no name", new_pupil, press<&frmNewPupil::NextDe>, {Id::frmNewPupil, Id::frmErrmsg}},
    {"removal, Close", removal, press<&frmDeletePupils::CloseDe>, {Id::frmSelectGame}},
    {"removal of nobody", removal, press<&frmDeletePupils::DeleteDe>, {Id::frmDeletePupils, Id::frmErrmsg}, false},
    {"games, double click on nothing", games, double_click, {Id::frmGames, Id::frmErrmsg}},
    {"games, a typing test", team_choice<27>, nothing, {Id::frmTypingTest}},
    {"games, the other typing test", team_choice<28>, nothing, {Id::frmTypingTest}},
    {"games, a board game", team_choice<kTiles>, nothing, {Id::frmSettings}},
    {"games, the hall of nothing", games, press<&frmGames::hall_De>, {Id::frmGames, Id::frmErrmsg}},
    {"games, the hall of a typing test", view<27>, nothing, {Id::frmHalloffame}},
    {"games, the hall of the other one", view<28>, nothing, {Id::frmHalloffame}},
    {"games, the hall of a board game", view<kTiles>, nothing, {Id::frmSettings}},
    {"games, Back", games, press<&frmGames::BackDe>, {Id::frmSelectGame}},
    {"a team for tiles", board<kTiles>, nothing, {Id::frmSimpleKeyBoard, Id::frmTimer}},
    {"a team for rhymes",
     board<kRhymes>,
     nothing,
     {Id::frmSimpleKeyBoard, Id::frmTimer, Id::frmWord, Id::frmWordsUsed}},
    {"a team for pictures",
     board<kPictures>,
     nothing,
     {Id::frmSimpleKeyBoard, Id::frmTimer, Id::frmWordsUsed, Id::frmPictureCard}},
    {"a team for sentences",
     board<kSentences>,
     nothing,
     {Id::frmSimpleKeyBoard, Id::frmTimer, Id::frmWordsUsed, Id::frmSentence}},
    {"a team for first letters",
     board<kFirstLetters>,
     nothing,
     {Id::frmSimpleKeyBoard, Id::frmTimer, Id::frmPictureCard}},
    {"a team to view", view<kTiles>, join, {Id::frmHalloffame}},
    {"board before the start, Close", board<kTiles>, press<&frmSimpleKeyBoard::close_De>, {Id::frmGames}},
    {"tiles, Close", play<kTiles>, press<&frmSimpleKeyBoard::close_De>, {Id::frmGames}},
    {"rhymes, Close", play<kRhymes>, press<&frmSimpleKeyBoard::close_De>, {Id::frmGames}},
    {"pictures, Close", play<kPictures>, press<&frmSimpleKeyBoard::close_De>, {Id::frmGames}},
    {"sentences, Close", play<kSentences>, press<&frmSimpleKeyBoard::close_De>, {Id::frmGames}},
    {"first letters, Close", play<kFirstLetters>, press<&frmSimpleKeyBoard::close_De>, {Id::frmGames}},
    {"tiles, won", score, nothing, {Id::frmScore}},
    {"tiles, out of time", play<kTiles>, last_second, {Id::frmTimeUp}},
    {"rhymes, out of time", play<kRhymes>, last_second, {Id::frmTimeUp}},
    {"pictures, out of time", play<kPictures>, last_second, {Id::frmTimeUp}},
    {"sentences, out of time", play<kSentences>, last_second, {Id::frmTimeUp}},
    {"first letters, out of time", play<kFirstLetters>, last_second, {Id::frmTimeUp}},
    {"time up, Play again", time_up, press<&frmTimeUp::PlayAgainDe>, {Id::frmSettings}},
    {"time up, Another game", time_up, press<&frmTimeUp::AnotherDe>, {Id::frmGames}},
    {"score, Hall of Fame", hall, nothing, {Id::frmHalloffame}},
    {"hall, Play again", hall, press<&frmHalloffame::PlayAgainDe>, {Id::frmSettings}},
    {"hall of a typing test, Play again", typing_hall, press<&frmHalloffame::PlayAgainDe>, {Id::frmTypingTest}},
    {"hall, Another game", hall, press<&frmHalloffame::AnotherDe>, {Id::frmGames}},
    {"hall that was viewed, Another game", view<27>, press<&frmHalloffame::AnotherDe>, {Id::frmGames}},
    {"typing test, finished", typed_sentence, nothing, {Id::frmScore}},
    {"typing test, Skip", team_choice<28>, press<&frmTypingTest::skip_de>, {Id::frmGames}},
};

TEST(Navigation, EveryWayLeadsToItsFormsAndLeavesNoOther) {
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.from);
        Seat seat;
        row.there(seat);
        row.happens(seat);
        for (std::size_t i = 0; i < kFormCount; ++i) {
            const auto id = static_cast<FormId>(i);
            const bool open = id == Id::frmBackGround || std::ranges::find(row.open, id) != row.open.end();
            const bool waits = id == Id::frmSelectGame && row.list_waits;
            EXPECT_EQ(seat.room.is_open(id), open) << "form " << i;
            EXPECT_EQ(seat.room.program.forms.find(id) != nullptr, open || waits) << "form " << i;
        }
        EXPECT_EQ(seat.room.message().empty(), std::ranges::find(row.open, Id::frmErrmsg) == row.open.end());
        EXPECT_FALSE(seat.room.display.ended());
    }
}

TEST(Navigation, SomeTileGamesCloseWhatAnEarlierGameLeftOpen) {
    for (const auto& [board, closes] :
         std::vector<std::pair<void (*)(Seat&), bool>>{{board<7>, true}, {board<8>, false}}) {
        Seat seat;
        for (const Id id : {Id::frmWord, Id::frmWordsUsed, Id::frmSentence, Id::frmPictureCard}) {
            seat.room.program.forms.load(id);
        }
        board(seat);
        EXPECT_EQ(seat.room.program.forms.find(Id::frmWord) == nullptr, closes);
        EXPECT_EQ(seat.room.program.forms.find(Id::frmWordsUsed) == nullptr, closes);
        EXPECT_EQ(seat.room.program.forms.find(Id::frmSentence) == nullptr, closes);
        EXPECT_EQ(seat.room.program.forms.find(Id::frmPictureCard) == nullptr, closes);
    }
}

TEST(Navigation, EveryExitEndsTheProgramAlsoUnderAMessage) {
    struct Case {
        const char* from;
        void (*there)(Seat&);
        void (*exit)(Seat&);
    };
    const std::vector<Case> exits{
        {"pupil list", first_screen, press<&frmSelectGame::Exitde>},
        {"pupil list after a visit to the games", [](Seat& seat) { games(seat), seat.ann.presses(&frmGames::BackDe); },
         press<&frmSelectGame::Exitde>},
        {"games", games, press<&frmGames::Exitde>},
        {"games, under a message", [](Seat& seat) { games(seat), double_click(seat); }, press<&frmGames::Exitde>},
        {"hall", hall, press<&frmHalloffame::Exitde>},
        {"hall that was viewed", view<27>, press<&frmHalloffame::Exitde>},
        {"hall, under a message", [](Seat& seat) { hall(seat), seat.room.program.tell("Wait"); },
         press<&frmHalloffame::Exitde>},
        {"time up", time_up, press<&frmTimeUp::Exitde>},
    };
    for (const Case& c : exits) {
        SCOPED_TRACE(c.from);
        Seat seat;
        c.there(seat);
        EXPECT_FALSE(seat.room.display.ended());
        c.exit(seat);
        EXPECT_TRUE(seat.room.display.ended());
        for (std::size_t i = 0; i < kFormCount; ++i) {
            EXPECT_EQ(seat.room.program.forms.find(static_cast<FormId>(i)), nullptr) << "form " << i;
        }
    }
}

TEST(Navigation, AButtonThatIsPressedActsWhereverItIsLetGo) {
    Seat seat;
    team_choice<kTiles>(seat);
    auto& teams = seat.room.form<frmSettings>();
    const Point on_another_team{teams.Left + teams.BlueDe.bounds().centre().x, teams.Top + teams.Image2.Top + 10};
    seat.ann.presses_and_lets_go_at(teams.redDe, on_another_team);
    EXPECT_EQ(seat.room.state().TimeLimit, kRedTeam.time_limit);
    seat.ann.presses_and_lets_go_at(seat.room.form<frmSimpleKeyBoard>().close_De, {0, 0});
    EXPECT_EQ(seat.room.open_forms(), (std::vector{Id::frmBackGround, Id::frmGames}));
}

TEST(Navigation, TheProgramStartsSilentlyWithBothSwitchesOn) {
    Seat seat;
    seat.room.display.during_yield([&] {
        EXPECT_EQ(seat.room.open_forms(), (std::vector{Id::frmBackGround}));
        EXPECT_FALSE(seat.room.random.seeded()) << "the first screen must not wait for anything";
    });
    seat.room.start();
    EXPECT_TRUE(seat.room.random.seeded());
    EXPECT_TRUE(seat.room.state().SoundOn);
    EXPECT_TRUE(seat.room.state().PhonicsOn);
    EXPECT_EQ(seat.room.desktop.active(), &seat.room.form<frmSelectGame>());
    EXPECT_TRUE(seat.room.sound.heard().empty());
}

TEST(Navigation, AProgramThatIsClosedWhileItStartsStaysClosed) {
    Seat seat;
    seat.room.display.during_yield([&] { seat.room.program.forms.unload_all(); });
    seat.room.start();
    EXPECT_TRUE(seat.room.display.ended());
    EXPECT_TRUE(seat.room.open_forms().empty());
}

TEST(Navigation, WithoutAStoreNothingIsShownAndNothingWritten) {
    Seat seat;
    const auto file = seat.room.folder.path() / "data.mdb";
    std::filesystem::remove(file);
    const auto failure = seat.room.program.start();
    ASSERT_TRUE(failure);
    EXPECT_FALSE(failure->reason.empty());
    EXPECT_TRUE(seat.room.open_forms().empty());
    EXPECT_FALSE(std::filesystem::exists(file));
}

}  // namespace
}  // namespace marrowfen
