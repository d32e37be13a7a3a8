#include "monkey.h"

#include <algorithm>
#include <array>

#include "core/artwork.h"
#include "core/game_table.h"
#include "platform/forms/spoken.h"
#include "pupils/frmDeletePupils.h"
#include "pupils/frmErrmsg.h"
#include "pupils/frmGames.h"
#include "pupils/frmNewPupil.h"
#include "pupils/frmSelectGame.h"
#include "pupils/frmSettings.h"
#include "results/frmHalloffame.h"
#include "results/frmScore.h"
#include "results/frmTimeUp.h"
#include "results/frmTimer.h"
#include "typing/frmTypingTest.h"

namespace marrowfen {

namespace {

constexpr std::string_view kSentence = "the quick brown fox jumps over the lazy dog";
constexpr std::string_view kKeys = "abcdefghijklmnopqrstuvwxyzAEIOU0123456789 .'\r\b\x1B";

bool is_tile_game(const State& state) {
    const Game* game = find_game(state.TemplateID);
    return game != nullptr && game->deals_tiles;
}

}  // namespace

Monkey::Monkey(Classroom& room, unsigned seed)
    : room_(room),
      program_(room.recorder ? static_cast<InputSink&>(*room.recorder) : room.desktop),
      answers_(room),
      chance_(seed) {
    room_.display.attach(*this);
}

Taker Monkey::handle(const InputEvent& event) {
    ++events_;
    ++depth_;
    const Taker taker = program_.handle(event);
    --depth_;
    if (complaint_.empty()) complaint_ = what_is_wrong();
    look_at_the_board();
    return taker;
}

void Monkey::plays(std::size_t events) {
    const std::size_t until = events_ + events;
    while (events_ < until && complaint_.empty() && !room_.display.ended()) {
        if (once_in(15)) room_.display.during_yield([this] { hammers_inside(); }, static_cast<std::size_t>(draw(3)));
        if (once_in(100)) {
            meddles();
        } else if (once_in(4)) {
            fools_about();
        } else {
            plays_on();
        }
    }
    room_.engine.refuse_after(0, 0);
    room_.engine.refuses_reads = room_.engine.refuses_writes = false;
    is_tired_ = true;
    while (room_.display.has_pending_events()) room_.desktop.yield();
}

void Monkey::plays_on() {
    if (room_.display.ended()) return;
    if (!once_in(8)) room_.display.idle(Mouse::kDoubleClickTime * 2);
    if (auto* message = open<frmErrmsg>()) return clicks(message->ContinueDe);
    if (auto* score = open<frmScore>()) return clicks(score->HallDe);
    if (auto* hall = open<frmHalloffame>()) return clicks(once_in(3) ? hall->PlayAgainDe : hall->AnotherDe);
    if (auto* time_up = open<frmTimeUp>()) return clicks(once_in(3) ? time_up->PlayAgainDe : time_up->AnotherDe);
    if (auto* settings = open<frmSettings>()) {
        return clicks(*std::array{&settings->redDe, &settings->YellowDe, &settings->GreenDe, &settings->BlueDe}.at(
            static_cast<std::size_t>(draw(4))));
    }
    if (auto* test = open<frmTypingTest>()) {
        const std::size_t typed = test->BuildTest.Caption->size();
        return types(static_cast<char32_t>(kSentence.at(std::min(typed, kSentence.size() - 1))));
    }
    if (auto* board = open<frmSimpleKeyBoard>()) return plays_on(*board);
    if (auto* newcomer = open<frmNewPupil>()) {
        for (int i = draw(6); i > 0; --i) types(static_cast<char32_t>(one_of(kKeys)));
        return clicks(once_in(3) ? newcomer->BackDe : newcomer->NextDe);
    }
    if (auto* removal = open<frmDeletePupils>()) {
        if (once_in(2) && removal->lbkids.entries().size() > 1)
            clicks(removal->lbkids, index_in(removal->lbkids.entries()));
        return clicks(once_in(3) ? removal->DeleteDe : removal->CloseDe);
    }
    if (auto* games = open<frmGames>()) return chooses_a_game(*games);
    auto* pupils = open<frmSelectGame>();
    if (pupils == nullptr) return;
    if (pupils->cmbPupils.entries().empty() || once_in(5)) return clicks(pupils->NewPlay_De);
    room_.display.pick(pupils->cmbPupils, index_in(pupils->cmbPupils.entries()), centre_on_screen(pupils->cmbPupils));
}

void Monkey::chooses_a_game(frmGames& games) {
    if (games.List1.entries().empty()) return clicks(games.BackDe);
    const std::size_t row = index_in(games.List1.entries());
    clicks(games.List1, row);
    if (open<frmGames>() != &games) return;  // it was the second press of a double click
    if (once_in(10)) return clicks(games.hall_De);
    if (once_in(10)) return types(U'\r');
    clicks(games.List1, row);
}

void Monkey::plays_on(frmSimpleKeyBoard& board) {
    auto* stopwatch = open<frmTimer>();
    if (stopwatch != nullptr && !room_.state().GameRunning) return clicks(stopwatch->Timer_Start_De);
    if (room_.state().GameWon) return;
    std::string letter;
    try {
        letter = answers_.right_letter();
    } catch (const std::logic_error&) {
        return types_anything();  // there is no answer: a word could not be read, and the next key asks for it
    }
    const PictureBox* key = board.find_key(letter);
    const Game* game = find_game(room_.state().TemplateID);
    const bool by_mouse = once_in(2) || game == nullptr || game->typed == RuleId::None;
    if (key == nullptr) return types_anything();
    if (!by_mouse) return types(static_cast<char32_t>(letter.front()));
    const PictureBox& tile = answers_.lowest_tile();
    if (tile.Visible) return drags(centre_on_screen(tile), centre_on_screen(*key));
    clicks(*key);
}

// Where a handler waits for a cue, it must bear that more answers come, that time runs out, and that its game goes.
void Monkey::hammers_inside() {
    if (is_tired_) return;
    for (int i = draw(4); i > 0; --i) once_in(2) ? plays_on() : fools_about();
    auto* board = room_.program.forms.find<frmSimpleKeyBoard>();
    if (board != nullptr && once_in(60)) room_.display.click(centre_on_screen(board->close_De));
}

void Monkey::fools_about() {
    if (room_.display.ended()) return;
    switch (draw(8)) {
        case 0:
            return room_.seconds_pass(draw(3));
        case 1:
            room_.display.idle(Mouse::kDoubleClickTime * 2);
            return drags(somewhere(), somewhere());
        case 2:
        case 3:
            return types_anything();
        case 4:
            return (void)room_.display.tell(WheelTurn{somewhere()});
        case 5:
            return (void)room_.display.move(somewhere());
        default:
            return presses_anything(somewhere());
    }
}

void Monkey::meddles() {
    auto& engine = room_.engine;
    switch (draw(9)) {
        case 0:
            engine.refuses_writes = once_in(2);
            break;
        case 1:
            engine.refuses_reads = once_in(2);
            break;
        case 2:
            engine.refuse_after(static_cast<std::size_t>(draw(30)), static_cast<std::size_t>(draw(4)));
            break;
        case 3:
            room_.display.resize({15 * (320 + draw(4000)), 15 * (240 + draw(2000))});
            break;
        case 4:
            room_.display.strike({.key = Key::D, .alt = true, .character = U'd'}, room_.desktop);
            break;
        case 5:
            if (once_in(20)) room_.display.tell(CloseRequest{});
            break;
        case 6:
            room_.seconds_pass(once_in(4) ? 300 : 30);
            break;
        case 7:  // a year ends, a battery is empty, somebody sets the clock
            room_.clock.date = std::chrono::sys_days{std::chrono::year{once_in(2) ? 2026 : 1970} / 12 / 31} +
                               std::chrono::days{draw(3)};
            room_.clock.time = std::chrono::seconds{draw(24 * 60 * 60)};
            break;
        default:
            room_.display.idle(std::chrono::hours{draw(20)});
    }
}

/// The middle of something that is on the screen, mostly.
Point Monkey::somewhere() {
    const auto forms = room_.desktop.visible_forms();
    if (forms.empty() || once_in(12)) return {15 * (draw(1200) - 50), 15 * (draw(900) - 50)};
    const Form& form = once_in(4) ? *one_of(forms) : *forms.back();
    if (form.controls().empty()) return {form.Left + 10, form.Top + 10};
    return centre_on_screen(*one_of(form.controls()));
}

Control* Monkey::control_at(Point place) const {
    const Form* form = room_.desktop.form_at(place);
    return form == nullptr ? nullptr : form->control_at({place.x - form->Left, place.y - form->Top});
}

void Monkey::clicks(const Control& control, std::optional<std::size_t> row) {
    const Point at = centre_on_screen(control);
    room_.display.click(at, row);
}

void Monkey::types(char32_t character) { room_.display.strike({.character = character}, room_.desktop); }

void Monkey::types_anything() {
    const auto character = static_cast<char32_t>(one_of(kKeys));
    switch (draw(7)) {
        case 0:  // held down
            for (int i = draw(20); i > 0; --i) {
                room_.display.tell(KeyDown{.repeats = true, .character = character, .code = 30});
                room_.display.tell(KeyUp{.repeats = true, .code = 30});
            }
            return;
        case 1:
            return (void)room_.display.tell(KeyDown{
                .alt = once_in(2), .control = once_in(2), .command = once_in(2), .character = character, .code = 31});
        case 2:
            return (void)room_.display.tell(KeyUp{.alt = once_in(2), .code = 31});
        case 3:
            return room_.display.strike({.key = Key::Enter, .character = U'\r'}, room_.desktop);
        case 4:
            return moves_the_ring();
        default:
            return types(character);
    }
}

/// With the keys that lead to whatever can be pressed, and press it, but seldom out of a game or the program.
void Monkey::moves_the_ring() {
    auto key = static_cast<Key>(static_cast<int>(Key::Tab) + draw(10));
    const auto* at = as<Image>(room_.desktop.ring().at());
    const bool leaves = at != nullptr && (at->Picture == art::kExit || at->Picture == art::kClose);
    if (leaves && (key == Key::Space || key == Key::Escape) && draw(50) > 0) key = Key::Tab;
    const char32_t character = key == Key::Space ? U' ' : 0;
    room_.display.strike({.key = key, .shift = once_in(4), .character = character}, room_.desktop);
}

void Monkey::presses_anything(Point at) {
    Control* control = control_at(at);
    if (const auto* image = as<Image>(control)) {  // it would be over too soon
        if (image->Picture == art::kExit && draw(200) > 0) return;
        if ((image->Picture == art::kClose || image->Picture == art::kSkip) && draw(15) > 0) return;
    }
    if (!once_in(4)) room_.display.idle(Mouse::kDoubleClickTime * 2);
    std::optional<std::size_t> row;
    if (auto* combo = as<ComboBox>(control)) {
        if (!combo->entries().empty()) return room_.display.pick(*combo, index_in(combo->entries()), at);
    } else if (auto* list = as<ListBox>(control)) {
        if (!list->entries().empty()) row = once_in(9) ? MousePress::kBelowTheRows : index_in(list->entries());
    }
    const auto button = once_in(6) ? MouseButton::Right : MouseButton::Left;
    if (!row && button == MouseButton::Left && once_in(3)) {
        room_.display.touch(at);
    } else {
        room_.display.press(at, row, button);
    }
    if (once_in(8)) room_.display.press(somewhere(), {}, once_in(2) ? MouseButton::Right : MouseButton::Middle);
    if (once_in(10)) return;  // its release gets lost
    room_.display.release(once_in(5) ? somewhere() : at, button);
    if (row && once_in(2)) room_.display.click(at, row);
}

void Monkey::drags(Point from, Point to) {
    room_.display.press(from);
    room_.display.move(somewhere());
    if (once_in(20)) plays_on();  // with the other hand
    if (once_in(50)) room_.seconds_pass(300);
    room_.display.move(to);
    if (!once_in(50)) room_.display.release(to);
}

void Monkey::look_at_the_board() {
    const State& state = room_.program.state;
    auto* board = room_.program.forms.find<frmSimpleKeyBoard>();
    if (!state.GameWon) time_before_ = state.TimeElapsed;
    if (board == nullptr || state.GameRunning) return;
    faces_.clear();
    for (const PictureBox& key : board->Keys) faces_.push_back(key.Picture);
}

std::string Monkey::what_is_wrong() const {
    std::string wrong = what_is_wrong_with_the_desktop();
    if (wrong.empty()) wrong = what_is_wrong_with_the_game();
    return wrong;
}

std::string Monkey::what_is_wrong_with_the_desktop() const {
    const Desktop& desktop = room_.desktop;
    const auto forms = desktop.visible_forms();
    if (forms.empty() != room_.display.ended()) return "a program without a form, or a form without a program";
    if (forms.empty()) return {};
    if (!std::ranges::is_sorted(forms, {}, [](const Form* form) { return form->design().level; })) {
        return "a form stands above its level";
    }
    const Form* active = desktop.active();
    const bool is_there = std::ranges::find(forms, active) != forms.end();
    if (active != nullptr && !is_there) return "a form is active that nobody sees";
    if (active != nullptr && active->focus() != nullptr && &active->focus()->form() != active) {
        return "the focus is on another form";
    }
    if (desktop.drag() && std::ranges::find(forms, &desktop.drag()->source->form()) == forms.end()) {
        return "a tile is dragged from a form that has gone";
    }
    if (depth_ > 0) return {};
    for (Control* stop : desktop.ring().stops()) {
        if (part_of(*stop) == Part::None || spoken_name(*stop).empty())
            return "there is something to press without a name";
    }
    if (active == nullptr) return "no form is active";
    if (forms.back()->design().level == Level::Message && active != forms.back()) return "a message is not active";
    if (forms.front() != room_.program.forms.find(FormId::frmBackGround)) return "something lies below the backdrop";
    return {};
}

std::string Monkey::what_is_wrong_with_the_game() const {
    const State& state = room_.program.state;
    const auto in = [](int low, int number, int high) { return low <= number && number <= high; };
    if (!in(0, state.KeysDone, state.PanelsDone) || !in(0, state.PanelsDone, kKeyCount)) return "keys are miscounted";
    if (!in(0, state.WordCursor, 26) || !in(0, state.TargetPos, kSentencesInAGame) || !in(0, state.RhymesLeft, 50) ||
        !in(0, state.FoundCount, 50)) {
        return "words are miscounted";
    }
    if (state.TimeElapsed < 0 || (state.TimeLimit > 0 && state.TimeElapsed > 240)) return "time is miscounted";

    auto* board = room_.program.forms.find<frmSimpleKeyBoard>();
    auto* stopwatch = room_.program.forms.find<frmTimer>();
    if (board != nullptr && state.GameWon && state.TimeElapsed != time_before_) return "time went on after the win";
    if (depth_ > 0 || room_.display.ended()) return {};
    if (board == nullptr) return stopwatch == nullptr ? "" : "a clock without a game";
    if (stopwatch == nullptr) return "a game without a clock";
    if (stopwatch->KeyTimer.enabled() != state.GameRunning) return "the clock does not run with the game";
    if (!state.TypedText.empty() && !state.TargetText.empty() && state.RhymesLeft == 0 && !state.GameWon &&
        !in_capitals(state.TargetText).starts_with(state.TypedText) && room_.is_open(FormId::frmWordsUsed) &&
        !room_.is_open(FormId::frmWord)) {
        return "the word begins with what it does not begin with";
    }
    if (!is_tile_game(state) || state.GameWon) return {};
    std::set<std::string> on_show;
    int tiles = 0;
    for (const PictureBox& tile : board->DragKey) {
        if (!tile.Visible) continue;
        ++tiles;
        on_show.insert(tile.Tag);
        const auto dealt = std::ranges::find(state.KeyLetters, tile.Tag.get());
        if (dealt != state.KeyLetters.end()) return "the letter of a tile can be dealt again";
    }
    int filled = 0;
    for (std::size_t i = 0; i < faces_.size(); ++i) {
        if (board->Keys[static_cast<int>(i) + 1].Picture != faces_[i]) ++filled;
    }
    if (state.GameRunning && filled != state.KeysDone) return "a key was counted that was not filled";
    if (on_show.size() != static_cast<std::size_t>(tiles)) return "two tiles have one letter";
    if (tiles != state.PanelsDone - state.KeysDone) return "tiles got lost";
    const auto empty = std::ranges::count_if(state.KeyLetters, &std::string::empty);  // entry 0 always is
    return empty == state.PanelsDone + 1 ? "" : "letters got lost";
}

Day spend_a_day(unsigned seed, const std::filesystem::path& recording) {
    constexpr std::size_t kEvents = 5'000;
    Classroom room({"Ann", "Ben"}, recording);
    Monkey monkey(room, seed);
    room.start();
    monkey.plays(kEvents);
    Day day;
    day.events = monkey.events();
    day.complaint = monkey.complaint();
    for (const Kept& result : room.results()) {
        ++day.results;
        day.games.insert(result.game);
        const bool counts = result.limit == 0 ? result.points >= 0 : result.points >= 0 && result.points <= 100;
        if (!counts && day.complaint.empty()) day.complaint = "a result that can't be";
    }
    return day;
}

}  // namespace marrowfen
