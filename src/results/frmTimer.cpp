#include "results/frmTimer.h"

#include "board/frmSimpleKeyBoard.h"
#include "core/game_table.h"

namespace marrowfen {

namespace {

constexpr float kTwelveOClock = -1.58F;
// Past three o'clock the angle would turn positive, which no longer draws a closed sector: it is thrown a whole turn
// back, and the sector goes on growing from there.
constexpr float kThreeOClock = -0.01F;
constexpr float kWholeTurnBack = -6.28F;
constexpr double kWholeTurn = 2 * (22.0 / 7);  // a little more than it is, as the dial was always drawn

}  // namespace

frmTimer::frmTimer(Program& program)
    : ListeningForm(
          program,
          {.size = {1560, 2325}, .placement = Placement::Own, .key_preview = KeyPreview::Yes, .spoken = "Stopwatch"}),
      HandAngle(kTwelveOClock) {}

void frmTimer::place() {
    const Form* board = program_.forms.find(FormId::frmSimpleKeyBoard);
    if (board == nullptr) return;
    Top = board->Top - Height;
    Left = board->Left.get();
}

void frmTimer::start() {
    stop1.bring_to_front();
    dial.bring_to_front();
    desktop().yield();
    auto* board = program_.forms.find<frmSimpleKeyBoard>();
    // A second press may have come in meanwhile: the clock starts only once.
    if (!desktop().is_loaded(*this) || board == nullptr || KeyTimer.enabled()) return;
    program_.state.GameRunning = true;
    board->enable_play();
    dial.draw({.sector = {}, .outline = kWhite, .fill = FillColor});
    HandStep = kWholeTurn / program_.state.TimeLimit;
    HandAngle = kTwelveOClock;
    FillColor = kWhite;
    dial.SecondsLeft = {program_.state.TimeLimit, program_.state.TimeLimit};
    KeyTimer.enable();
    desktop().yield();
    if (!desktop().is_loaded(*this)) return;
    Timer_Start_Pre.Visible = false;
    Timer_Start_De.Visible = false;
}

void frmTimer::draw_sector() {
    dial.draw({.sector = Disc::Sector{HandAngle, kTwelveOClock}, .outline = kWhite, .fill = FillColor});
}

void frmTimer::tick() {
    State& state = program_.state;
    if (state.GameWon) return;
    const auto advance = [this] { HandAngle = static_cast<float>(static_cast<double>(HandAngle) + HandStep); };
    ++state.TimeElapsed;
    dial.SecondsLeft = {state.TimeLimit - state.TimeElapsed, state.TimeLimit};
    const bool up = state.TimeElapsed == state.TimeLimit;
    advance();
    draw_sector();
    if (up) {
        advance();
        draw_sector();
        KeyTimer.disable();
    }
    if (HandAngle > kThreeOClock) HandAngle = kWholeTurnBack;
    if (up) time_is_up();
}

void frmTimer::time_is_up() {
    using Id = FormId;
    FormSet& forms = program_.forms;
    const Game* game = find_game(program_.state.TemplateID);
    if (game != nullptr && game->companions_go_first_at_time_up) {
        for (const FormId companion : game->companions) forms.unload(companion);
    }
    forms.unload({kId, Id::frmSimpleKeyBoard, Id::frmWordsUsed, Id::frmSentence, Id::frmPictureCard, Id::frmWord});
    forms.show(Id::frmTimeUp);
}

}  // namespace marrowfen
