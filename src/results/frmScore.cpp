#include "results/frmScore.h"

namespace marrowfen {

namespace {

std::string minutes_and_seconds(int elapsed) {
    const std::string seconds = std::to_string(elapsed % 60);
    return std::to_string(elapsed / 60) + ":" + (seconds.size() == 1 ? "0" : "") + seconds;
}

// Of the allowed time, the percentage left; without a limit, the seconds taken.
int points(int elapsed, int limit) {
    if (limit == 0) return elapsed;
    return static_cast<int>(static_cast<double>(limit - elapsed) / limit * 100);
}

}  // namespace

frmScore::frmScore(Program& program) : ProgramForm(program, {.size = {6720, 5835}}) {}

void frmScore::load() {
    const State& state = program_.state;
    const Value name = program_.LookupField("Pupils", "PupilName", where_number("Pupil_ID", state.PupilID));
    Label4.Caption = as_text(name) + " your time was:";
    txtTime.Text = minutes_and_seconds(state.TimeElapsed);
    txtpoints.Text = std::to_string(points(state.TimeElapsed, state.TimeLimit));
}

std::optional<StoreFailure> frmScore::save() const {
    State& state = program_.state;
    state.GameRs = program_.open_rows("Hall_of_Fame");
    RowSet& results = *state.GameRs;
    results.add_row();
    results.set_field("Pupil_id", std::int64_t{state.PupilID});
    results.set_field("TimeTaken", txtTime.Text.get());
    results.set_field("TheDate", program_.ports.clock.today());
    results.set_field("TimeLimit", std::int64_t{state.TimeLimit});
    results.set_field("Points", std::int64_t{as_whole(txtpoints.Text.get())});
    results.set_field("GameID", std::int64_t{state.TemplateID});
    results.set_field("timeplayed", program_.ports.clock.time_of_day());
    auto failure = results.update();
    state.GameRs.reset();
    return failure;
}

void frmScore::keep_result() {
    if (const auto failure = save()) {
        program_.tell("Your result can't be kept just now: " + failure->reason + ". Press Hall of Fame to try again.");
        return;
    }
    program_.forms.show(FormId::frmHalloffame);
    program_.forms.unload(kId);
}

}  // namespace marrowfen
