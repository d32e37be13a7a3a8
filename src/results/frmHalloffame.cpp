#include "results/frmHalloffame.h"

#include <array>

#include "core/game_table.h"
#include "core/teams.h"

namespace marrowfen {

namespace {

struct Row {
    Rect name, time, points, date;
};

constexpr std::array<Row, frmHalloffame::kRows> kRowPlaces{{
    {{870, 1665, 2340, 510}, {3405, 1665, 2025, 510}, {5595, 1620, 2025, 510}, {7770, 1665, 2025, 510}},
    {{870, 2250, 2340, 555}, {3405, 2250, 2025, 555}, {5595, 2235, 2025, 510}, {7770, 2250, 2025, 510}},
    {{870, 2850, 2340, 555}, {3405, 2850, 2025, 510}, {5595, 2850, 2025, 510}, {7770, 2850, 2025, 510}},
    {{855, 3435, 2340, 555}, {3405, 3450, 2025, 510}, {5595, 3420, 2025, 510}, {7770, 3450, 2025, 510}},
    {{870, 4050, 2340, 510}, {3405, 4050, 2025, 510}, {5595, 4050, 2025, 510}, {7770, 4050, 2025, 510}},
    {{870, 4650, 2340, 510}, {3405, 4650, 2025, 510}, {5595, 4650, 2025, 510}, {7770, 4650, 2025, 510}},
    {{870, 5250, 2340, 510}, {3405, 5250, 2025, 510}, {5595, 5265, 2025, 510}, {7770, 5250, 2025, 510}},
    {{870, 5850, 2340, 510}, {3405, 5850, 2025, 510}, {5595, 5865, 2025, 510}, {7770, 5850, 2025, 510}},
    {{840, 6450, 2415, 510}, {3405, 6480, 2025, 510}, {5595, 6465, 2025, 510}, {7770, 6480, 2025, 510}},
    {{840, 7035, 2415, 510}, {3405, 7035, 2025, 465}, {5595, 7065, 2025, 510}, {7770, 7035, 2025, 510}},
}};

constexpr TextBox::Style kCell{.font = comic(15.75), .fore = {16762944}, .back = kYellow, .framed = false};
constexpr TextBox::Style kDateCell{.font = comic(12), .fore = {16762944}, .back = kYellow, .framed = false};

}  // namespace

frmHalloffame::frmHalloffame(Program& program)
    : ReadingForm(program, {.size = {9990, 8400}, .spoken = "Hall of fame"}) {
    for (const Row& row : kRowPlaces) {
        Pname.add(*this, row.name, TextBox::Mode::ReadOnly, kCell);
        Ptime.add(*this, row.time, TextBox::Mode::ReadOnly, kCell);
        Points.add(*this, row.points, TextBox::Mode::ReadOnly, kCell);
        TheDate.add(*this, row.date, TextBox::Mode::ReadOnly, kDateCell);
    }
}

std::optional<StoreFailure> frmHalloffame::read() {
    State& state = program_.state;
    state.GameRs = program_.open_rows("besttimes");
    Label1.Caption = std::string(team_name(state.TimeLimit)) + " Team Hall Of Fame";
    Label1.ForeColor = kBlack;
    if (state.TemplateID == kOldTypingTest) {
        Label17.Caption = "Typing Test";
    } else {
        const auto name = program_.LookupField("Templates", "GameName", where_number("Template_ID", state.TemplateID));
        if (const auto* failure = name.failure()) return *failure;
        Label17.Caption = as_text(name.value());
    }

    const std::string of_this_list =
        where_number("GameID", state.TemplateID) + " And " + where_number("timelimit ", state.TimeLimit);
    RowSet& results = *state.GameRs;
    auto found = results.find_first(of_this_list);
    for (int row = 1; row <= kRows && found.value_or(false); ++row) {
        if (auto failure = fill_row(row, results)) return failure;
        found = results.find_next(of_this_list);
    }
    if (const auto* failure = found.failure()) return *failure;
    return std::nullopt;
}

std::optional<StoreFailure> frmHalloffame::fill_row(int row, const RowSet& results) {
    const auto show = [row](ControlArray<TextBox, 1>& column, std::string text) {
        column[row].Text = std::move(text);
        column[row].ForeColor = kBlack;
    };
    const auto pupil = as_whole(results.field("Pupil_id"));
    const auto name = program_.LookupField("Pupils", "PupilName", where_number("Pupil_ID", pupil));
    if (const auto* failure = name.failure()) return *failure;
    const Value date = results.field("TheDate");
    const auto* day = std::get_if<std::chrono::year_month_day>(&date);
    show(Pname, as_text(name.value()));
    show(Ptime, as_text(results.field("TimeTaken")));
    show(Points, as_text(results.field("Points")));
    show(TheDate, day == nullptr ? std::string{} : program_.ports.clock.short_date(*day));
    return std::nullopt;
}

void frmHalloffame::for_viewing_only() {
    PlayAgainDe.Visible = false;
    PlayAgainPr.Visible = false;
}

void frmHalloffame::play_again() {
    program_.forms.show(is_typing_test(program_.state.TemplateID) ? FormId::frmTypingTest : FormId::frmSettings);
    program_.forms.unload(kId);
}

void frmHalloffame::another_game() {
    program_.forms.show(FormId::frmGames);
    program_.forms.unload(kId);
}

}  // namespace marrowfen
