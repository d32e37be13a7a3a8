// Plays the whole product, and writes down each run. `tools/record_again` calls this after a change that was wanted.

#include "core/game_table.h"
#include "failure.h"
#include "lesson.h"
#include "pupils/frmDeletePupils.h"
#include "pupils/frmNewPupil.h"
#include "pupils/frmSelectGame.h"
#include "pupils/frmSettings.h"
#include "typing/frmTypingTest.h"

namespace marrowfen {

namespace {

/// A run that is recorded from the first screen to an exit.
class Run : public Lesson {
public:
    using Lesson::Lesson;

    /// With wrong answers here and there, and all ways of giving them in turn.
    void plays(int game, Phonics phonics) {
        const Game& row = *find_game(static_cast<std::int16_t>(game));
        switches(phonics);
        if (row.is_typing_test()) {
            ann.picks_game(game);
            types_the_sentence();
        } else {
            begins(game, kTeams.at(static_cast<std::size_t>(game) % kTeams.size()));
            plays_to_the_end(row.deals_tiles && row.typed == RuleId::None ? Way::Mouse : Way::Mixed);
        }
        ann.presses(&frmScore::HallDe);
    }
    void plays_to_the_end(Way way) {
        for (int answer = 0; Lesson::plays() && answer < 200; ++answer) {
            if (answer % 9 == 2) gives(wrong_letter(), way);
            gives(right_letter(), way);
            if (answer % 3 == 2) room.seconds_pass(1);
        }
    }
    void types_the_sentence() {
        for (const char letter : std::string_view("The quixCck brown fox jumps over the lazy dog")) {
            ann.types({&letter, 1});
            if (letter == ' ') room.seconds_pass(9);
        }
    }
    void views_the_hall(int game) {
        ann.selects(room.form<frmGames>().List1, ann.entry_of(game));
        ann.presses(&frmGames::hall_De);
    }
    void answers_message() { ann.presses(&frmErrmsg::ContinueDe); }
    void exits() { ann.presses(&frmGames::Exitde); }
    /// The four exits take turns.
    void leaves(int turn) {
        switch (turn % 4) {
            case 0:
                return ann.presses(&frmHalloffame::Exitde);
            case 1:
                ann.presses(&frmHalloffame::AnotherDe);
                return exits();
            case 2:
                ann.presses(&frmHalloffame::AnotherDe);
                ann.presses(&frmGames::BackDe);
                return ann.presses(&frmSelectGame::Exitde);
            default:
                ann.presses(&frmHalloffame::PlayAgainDe);
                if (room.is_open(FormId::frmTypingTest)) return (void)room.display.tell(CloseRequest{});
                ann.joins(kRedTeam);
                ann.starts_the_clock();
                room.seconds_pass(kRedTeam.time_limit);
                return ann.presses(&frmTimeUp::Exitde);
        }
    }
};

/// The last ones are typing tests, which know no team.
void the_other_switches(Run& run) {
    for (const int game : {1, 7, 13, 18, 25, 26, 27, 28}) {
        run.plays(game, game % 2 == 0 ? Phonics::Off : Phonics::On);
        run.goes_back_to_the_list();
    }
    run.exits();
}

void time_runs_out(Run& run) {
    for (const int game : {1, 7, 14, 25, 26, 13}) {
        const Team& team = kTeams.at(static_cast<std::size_t>(game) % kTeams.size());
        run.opens(game, team);
        run.ann.presses(&frmSimpleKeyBoard::close_De);  // before the clock runs
        run.begins(game, team);
        run.gives(run.right_letter(), Way::SmallLetters);
        run.room.seconds_pass(30);
        run.gives(run.wrong_letter(), Way::Mouse);
        run.room.seconds_pass(team.time_limit - 30);
        run.ann.clicks_at({15, 15}), run.ann.types("a1");  // too late
        if (game == 13) break;
        if (game % 2 == 0) {
            run.ann.presses(&frmTimeUp::AnotherDe);
            continue;
        }
        run.ann.presses(&frmTimeUp::PlayAgainDe);
        run.ann.joins(kBlueTeam);
        run.ann.starts_the_clock();
        run.room.seconds_pass(5);
        run.ann.presses(&frmSimpleKeyBoard::close_De);
        run.ann.types("a1");
    }
    run.ann.presses(&frmTimeUp::Exitde);
}

void pupils_come_and_go(Run& run) {
    run.plays(26, Phonics::On);
    run.ann.presses(&frmHalloffame::AnotherDe);
    run.ann.presses(&frmGames::BackDe);
    for (const std::string& name : {std::string("Zoë \"Zo\" O'Neill"), std::string(), std::string("ann"),
                                    std::string("Łukasz"), std::string(60, 'm'), std::string("Bo - 7")}) {
        run.ann.presses(&frmSelectGame::NewPlay_De);
        run.ann.types(name);
        if (run.ann.presses_enter(), run.room.is_open(FormId::frmErrmsg)) {
            run.ann.types("x");  // nothing takes it now
            run.answers_message();
            run.ann.presses(&frmNewPupil::BackDe);
        } else {
            run.ann.presses(&frmGames::BackDe);
            run.ann.sits_down(run.room.form<frmSelectGame>().cmbPupils.Text.get());  // who stands in the box
            run.ann.presses(&frmGames::BackDe);
        }
    }
    run.room.display.strike({.key = Key::D, .character = U'd'}, run.room.desktop);  // without Alt
    run.ann.presses_alt_d();
    auto& list = run.room.form<frmDeletePupils>().lbkids;
    run.ann.presses(&frmDeletePupils::DeleteDe);
    run.answers_message();
    for (const char* pupil : {"5 - Bo - 7", "1 - Ann"}) {
        run.ann.selects(list, pupil);
        run.ann.presses(&frmDeletePupils::DeleteDe);
    }
    run.ann.presses(&frmDeletePupils::CloseDe);
    run.ann.sits_down("Łukasz");
    run.views_the_hall(26);
    run.ann.joins(kGreenTeam);
    run.ann.presses(&frmHalloffame::Exitde);
}

void messages_and_halls(Run& run) {
    const auto& list = run.room.form<frmGames>().List1;
    for (int result = 1; result <= 12; ++result) {
        run.spoil_store("INSERT INTO Hall_of_Fame VALUES (1, '0:2" + std::to_string(result % 10) + "', '2026-03-0" +
                        std::to_string(result % 9 + 1) + "', 180, " + std::to_string(result * 7 % 12) + ", 5, NULL)");
    }
    run.ann.presses_enter();  // with no game chosen
    run.ann.double_clicks_below(run.room.form<frmGames>().List1);
    run.ann.presses(&frmGames::Snd_On);  // the form below stays alive, but for its list
    run.ann.selects(run.room.form<frmGames>().List1, list.entries()[8]);
    run.ann.types("abc"), run.ann.presses_enter();  // which presses the message's only button
    run.ann.presses(&frmGames::hall_De);
    run.answers_message();
    for (const int game : {5, 27, 28}) {
        run.views_the_hall(game);
        if (run.room.is_open(FormId::frmSettings)) run.ann.joins(kGreenTeam);
        run.ann.presses(&frmHalloffame::AnotherDe);
    }
    run.opens(5);  // a game that is played after a look at a hall is played
    run.ann.presses(&frmSimpleKeyBoard::close_De);
    run.ann.selects(run.room.form<frmGames>().List1, run.ann.entry_of(9)), run.ann.presses_enter();
    run.ann.joins(kRedTeam);
    run.ann.presses(&frmSimpleKeyBoard::close_De);
    run.ann.presses(&frmGames::hall_De);
    run.exits();  // under a message
}

/// The store fails for a moment, the screen turns, and the window is closed while a result waits.
void trouble(Run& run) {
    run.room.engine.refuse_after(0, 1);
    run.ann.selects(run.room.form<frmGames>().List1, run.ann.entry_of(26));
    run.ann.double_clicks(run.room.form<frmGames>().List1, run.ann.entry_of(26));
    run.answers_message();
    run.begins(26);
    run.room.display.resize({20480, 11520});
    while (run.Lesson::plays()) run.gives(run.right_letter(), Way::Mixed);
    run.room.engine.refuse_after(0, 1);
    run.ann.presses(&frmScore::HallDe);
    run.answers_message();
    run.room.display.resize({15360, 11520});
    run.room.display.tell(CloseRequest{});
}

/// What hands do that are new to a mouse and a keyboard.
void small_hands(Run& run) {
    HeadlessDisplay& display = run.room.display;
    const auto at = [](const Control& control) { return centre_on_screen(control); };
    auto& list = run.room.form<frmGames>().List1;
    display.tell(WheelTurn{at(list)});
    const Point corner{list.form().Left + list.Left, list.form().Top + list.Top};
    for (int press = 0; press < 4; ++press) display.click(corner, 0);  // the second one opens the game
    run.ann.thinks(), display.press(at(run.room.form<frmSettings>().Image3)), display.release({0, 0});

    run.ann.types(run.right_letter());  // before the clock runs
    display.press(at(run.tile(0))), display.move(at(run.key(run.tile(0).Tag.get()))), display.release({0, 0});
    for (const std::size_t yield : {0U, 1U}) display.during_yield([&] { run.ann.starts_the_clock(); }, yield);
    run.ann.starts_the_clock();
    run.ann.points_at(run.tile(7)), run.ann.points_at(run.key("A"));
    run.ann.drags(run.tile(3), run.board().close_De), run.ann.drags(run.tile(3), run.tile(4));
    const std::string filled = run.tile(3).Tag;
    run.drags_home(run.tile(3)), run.ann.drags(run.tile(3), run.key(filled)), run.ann.press(run.key(filled));
    display.press(at(run.tile(2)));
    for (const char* key : {"A", "4", "4"}) display.move(at(run.key(key)));
    display.move(at(run.board().close_De)), display.move(at(run.key("4"))), display.release({20000, 20000});
    for (const auto& [down, up] : {std::pair{MouseButton::Left, MouseButton::Right}, {MouseButton::Right, {}}}) {
        run.ann.thinks(), display.press(at(run.tile(1)), {}, down);
        display.press(at(run.tile(2)), {}, MouseButton::Middle), display.release(at(run.key("Q")), MouseButton::Middle);
        display.release(at(run.key(run.tile(1).Tag.get())), up), display.release(at(run.key("W")), down);
    }
    run.ann.thinks(), display.press(at(run.tile(0)));
    display.tell(MouseMove{at(run.key(run.tile(0).Tag.get())), {}});  // its release got lost
    run.ann.thinks(), display.press(at(run.board().close_De)), display.press(at(run.tile(0)));
    display.release({0, 0});

    run.begins(26);
    run.ann.press(run.room.form<frmPictureCard>().pic), run.ann.types(run.right_letter());  // the card hears nothing
    run.ann.clicks_at({run.board().Left + 5, run.board().Top + 5}), run.ann.types(run.right_letter());
    for (const KeyDown& key :
         {KeyDown{.alt = true, .character = U'a'}, KeyDown{.command = true, .character = U'a'},
          KeyDown{.alt = true, .control = true, .character = U'@'}, KeyDown{.key = Key::Enter, .character = U'\r'},
          KeyDown{.character = U'é', .code = 30}, KeyDown{.repeats = true, .character = U' '}}) {
        display.tell(key), display.tell(KeyUp{key.key, key.alt, key.repeats, key.code});
    }
    run.goes_back_to_the_list();
    run.ann.picks_game(27);
    for (const char32_t held : std::u32string_view(U"xthe x ")) {
        for (const bool repeats : {false, true, true}) {
            display.tell(KeyUp{.repeats = repeats}), display.tell(KeyDown{.repeats = repeats, .character = held});
        }
    }
    display.tell(KeyUp{});
    run.ann.press(run.room.form<frmTypingTest>().Keys[7]), run.ann.clicks_at({15, 15}), run.ann.types("he");
    run.room.seconds_pass(20);
    run.ann.presses(&frmTypingTest::skip_de);
    run.room.seconds_pass(20);
    run.exits();
}

void ten_tiles_typed_and_dragged(Run& run) {
    run.begins_with_tiles(18, 10);
    for (int n = 0; run.Lesson::plays(); ++n) {
        const std::string letters = run.letters();
        if (n % 3 == 2) {
            int highest = kTileCount - 1;
            while (!run.tile(highest).Visible) --highest;
            run.drags_home(run.tile(highest));
        } else {
            run.ann.types(std::string{letters.back(), letters.front()});
        }
    }
    run.room.display.tell(CloseRequest{});
}

constexpr std::pair<const char*, void (*)(Run&)> kRuns[] = {
    {"messages-and-halls", messages_and_halls},
    {"other-switches", the_other_switches},
    {"pupils-come-and-go", pupils_come_and_go},
    {"small-hands", small_hands},
    {"ten-tiles", ten_tiles_typed_and_dragged},
    {"time-runs-out", time_runs_out},
    {"trouble", trouble},
};

void make_all(const std::vector<std::filesystem::path>& arguments) {
    const std::filesystem::path& folder = arguments[0];
    std::filesystem::create_directories(folder);
    for (const Game& game : listed_games()) {
        Run run({"Ann"}, folder / ("game-" + std::to_string(100 + game.id).substr(1) + ".txt"));
        if (game.id % 5 == 0) run.ann.presses(&frmGames::Snd_On);
        run.plays(game.id, game.id % 2 == 0 ? Phonics::On : Phonics::Off);
        run.leaves(game.id);
    }
    for (const auto& [name, plays] : kRuns) {
        Run run({"Ann"}, folder / (std::string(name) + ".txt"));
        plays(run);
    }
    if (testing::Test::HasFailure()) throw Failure("A run did not go as it was meant to.");
}

}  // namespace

}  // namespace marrowfen

int main(int argc, char** argv) {
    return marrowfen::run_tool(argc, argv, "make_recordings OUT_FOLDER", marrowfen::make_all);
}
