#include "results/frmScore.h"

#include <utility>

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

frmScore::frmScore(Program& program) : ReadingForm(program, {.size = {6720, 5835}, .spoken = "Your result"}) {}

void frmScore::load() {
    const State& state = program_.state;
    txtTime.Text = minutes_and_seconds(state.TimeElapsed);
    txtpoints.Text = std::to_string(points(state.TimeElapsed, state.TimeLimit));
    Label4.Caption = "Your time was:";
    ReadingForm::load();
}

std::optional<StoreFailure> frmScore::read() {
    const auto name = program_.LookupField("Pupils", "PupilName", where_number("Pupil_ID", program_.state.PupilID));
    if (const auto* failure = name.failure()) return *failure;
    Label4.Caption = as_text(name.value()) + " your time was:";
    return std::nullopt;
}

std::optional<StoreFailure> frmScore::save() const {
    State& state = program_.state;
    state.GameRs = program_.open_rows("Hall_of_Fame");
    RowSet& results = *state.GameRs;
    if (auto failure = results.add_row()) return failure;
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

bool frmScore::keep_before_the_end() {
    const auto failure = save();
    if (!failure || std::exchange(asked_to_end_, true)) return true;
    program_.tell("Your result can't be kept just now: " + failure->reason +
                  ". Press Hall of Fame to try again, or close once more to leave without it.");
    return false;
}

}  // namespace marrowfen
