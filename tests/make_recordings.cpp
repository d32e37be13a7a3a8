// Plays the whole product, and writes down each run. `tools/record_again` calls this after a change that was wanted.

#include "core/game_table.h"
#include "failure.h"
#include "lesson.h"
#include "pupils/frmDeletePupils.h"
#include "pupils/frmErrmsg.h"
#include "pupils/frmNewPupil.h"
#include "pupils/frmSelectGame.h"
#include "pupils/frmSettings.h"
#include "typing/frmTypingTest.h"

namespace marrowfen {

namespace {

constexpr int kGames = 30;

/// A run that is recorded from the first screen to an exit.
class Run : public Lesson {
public:
    explicit Run(const std::filesystem::path& recording) : Lesson(recording) {}

    void plays(int game) {
        const Game& row = *find_game(static_cast<std::int16_t>(game));
        switches(game % 2 == 0 ? Phonics::On : Phonics::Off);
        if (game % 5 == 0) ann.presses(&frmGames::Snd_On);  // a quiet game
        ann.picks_game(game);
        if (row.is_typing_test()) {
            types_the_sentence();
        } else {
            constexpr std::array kTeamsInTurn{kRedTeam, kYellowTeam, kGreenTeam, kBlueTeam};
            ann.joins(kTeamsInTurn.at(static_cast<std::size_t>(game) % kTeamsInTurn.size()));
            ann.starts_the_clock();
            const bool is_dragged = row.deals_tiles && row.typed == RuleId::None;
            const Way way = is_dragged ? Way::Mouse : kWays.at(static_cast<std::size_t>(game) % kWays.size());
            for (int answer = 0; Lesson::plays() && answer < 200; ++answer) {
                if (answer % 9 == 2) gives(wrong_letter(), way);
                gives(right_letter(), way);
                if (answer % 12 == 5) room.seconds_pass(1);
            }
        }
        ann.presses(&frmScore::HallDe);
    }
    void types_the_sentence() {
        for (const char letter : std::string_view("The quixck brown fox jumps over the lazy dog")) {
            ann.types({&letter, 1});
            if (letter == ' ') room.seconds_pass(1);
        }
    }
    /// The four exits take turns.
    void leaves(int turn) {
        switch (turn % 4) {
            case 0:
                return ann.presses(&frmHalloffame::Exitde);
            case 1:
                ann.presses(&frmHalloffame::AnotherDe);
                return ann.presses(&frmGames::Exitde);
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

void time_runs_out(const std::filesystem::path& file) {
    Run run(file);
    for (const int game : {1, 7, 13}) {
        run.opens(game);
        run.ann.starts_the_clock();
        run.gives(run.right_letter(), Way::SmallLetters);
        run.room.seconds_pass(30);
        run.gives(run.wrong_letter(), Way::Mouse);
        run.room.seconds_pass(30);
        run.ann.presses(&frmTimeUp::PlayAgainDe);
        run.ann.joins(kBlueTeam);
        run.ann.starts_the_clock();
        run.room.seconds_pass(5);
        run.ann.presses(&frmSimpleKeyBoard::close_De);
    }
    run.opens(2);
    run.ann.starts_the_clock();
    run.room.seconds_pass(60);
    run.ann.presses(&frmTimeUp::Exitde);
}

void pupils_come_and_go(const std::filesystem::path& file) {
    Run run(file);
    const auto answers_message = [&] { run.ann.presses(&frmErrmsg::ContinueDe); };
    run.ann.presses(&frmGames::BackDe);
    for (const char* name : {"Zoë \"Zo\" O'Neill", "", "ann", "Łukasz"}) {
        run.ann.presses(&frmSelectGame::NewPlay_De);
        run.ann.types(name);
        if (run.ann.presses_enter(), run.room.is_open(FormId::frmErrmsg)) {
            answers_message();
            run.ann.presses(&frmNewPupil::BackDe);
        } else {
            run.ann.presses(&frmGames::BackDe);
        }
    }
    run.ann.presses_alt_d();
    auto& list = run.room.form<frmDeletePupils>().lbkids;
    run.ann.presses(&frmDeletePupils::DeleteDe);
    answers_message();
    run.ann.selects(list, "2 - ");
    run.ann.presses(&frmDeletePupils::DeleteDe);
    run.ann.presses(&frmDeletePupils::CloseDe);
    run.ann.sits_down("Ann");
    run.ann.presses(&frmGames::Exitde);
}

void messages_and_halls(const std::filesystem::path& file) {
    Run run(file);
    run.ann.double_clicks_below(run.room.form<frmGames>().List1);
    run.ann.presses(&frmErrmsg::ContinueDe);
    run.ann.presses(&frmGames::hall_De);
    run.ann.presses(&frmErrmsg::ContinueDe);
    for (const int game : {5, 27, 28}) {
        run.ann.selects(run.room.form<frmGames>().List1, run.ann.entry_of(game));
        run.ann.presses(&frmGames::hall_De);
        if (run.room.is_open(FormId::frmSettings)) run.ann.joins(kGreenTeam);
        run.ann.presses(&frmHalloffame::AnotherDe);
    }
    run.ann.presses(&frmGames::Exitde);
}

/// The store fails for a moment, the screen turns, and the window is closed while a result waits.
void trouble(const std::filesystem::path& file) {
    Run run(file);
    run.room.engine.refuse_after(0, 1);
    run.ann.selects(run.room.form<frmGames>().List1, run.ann.entry_of(26));
    run.ann.double_clicks(run.room.form<frmGames>().List1, run.ann.entry_of(26));
    run.ann.presses(&frmErrmsg::ContinueDe);
    run.begins(26);
    run.room.display.resize({20480, 11520});
    while (run.Lesson::plays()) run.gives(run.right_letter(), Way::Mixed);
    run.room.engine.refuse_after(0, 1);
    run.ann.presses(&frmScore::HallDe);
    run.ann.presses(&frmErrmsg::ContinueDe);
    run.room.display.resize({15360, 11520});
    run.room.display.tell(CloseRequest{});
}

void make_all(const std::vector<std::filesystem::path>& arguments) {
    const std::filesystem::path& folder = arguments[0];
    std::filesystem::create_directories(folder);
    for (int game = 1; game <= kGames; ++game) {
        const std::string number = std::to_string(100 + game).substr(1);  // always two digits
        Run run(folder / ("game-" + number + ".txt"));
        run.plays(game);
        run.leaves(game);
    }
    time_runs_out(folder / "time-runs-out.txt");
    pupils_come_and_go(folder / "pupils-come-and-go.txt");
    messages_and_halls(folder / "messages-and-halls.txt");
    trouble(folder / "trouble.txt");
    if (testing::Test::HasFailure()) throw Failure("A run did not go as it was meant to.");
}

}  // namespace

}  // namespace marrowfen

int main(int argc, char** argv) {
    return marrowfen::run_tool(argc, argv, "make_recordings OUT_FOLDER", marrowfen::make_all);
}
