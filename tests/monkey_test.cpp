// Hammers on everything, as a child does who has found out that it makes noise. What must hold, holds after each blow;
// the sanitizers watch what each touches.

#include <algorithm>
#include <iostream>
#include <random>

#include "board/frmSimpleKeyBoard.h"
#include "classroom.h"
#include "core/artwork.h"

namespace marrowfen {
namespace {

class Monkey {
public:
    Monkey(Classroom& room, unsigned seed) : room_(room), chance_(seed) {}

    void hammers() {
        if (draw(100) == 0) return meddles();
        if (draw(10) == 0) room_.display.during_yield([this] { hammers_inside(); }, static_cast<std::size_t>(draw(3)));
        hammers_once();
    }

private:
    int draw(int n) { return static_cast<int>(chance_() % static_cast<unsigned>(n)); }
    std::size_t index_in(const auto& things) { return static_cast<std::size_t>(draw(static_cast<int>(things.size()))); }
    auto& one_of(const auto& things) { return things[index_in(things)]; }

    /// Where a handler waits for a cue, it must bear that its game goes.
    void hammers_inside() {
        for (int i = draw(3); i > 0; --i) hammers_once();
        auto* board = room_.program.forms.find<frmSimpleKeyBoard>();
        if (board == nullptr || draw(40) > 0) return;
        room_.display.click(centre_on_screen(board->close_De));
    }

    void hammers_once() {
        if (room_.display.ended()) return;
        switch (draw(10)) {
            case 0:
                return room_.seconds_pass(draw(3));
            case 1:
                return drags(somewhere(), somewhere());
            case 2:
            case 3:
                return types();
            case 4:
            case 5:
            case 6:
                return puts_a_tile_where_it_belongs();
            default:
                return clicks(somewhere());
        }
    }

    void meddles() {
        if (room_.display.ended()) return;
        switch (draw(6)) {
            case 0:
                room_.engine.refuses_writes = !room_.engine.refuses_writes;
                break;
            case 1:
                room_.engine.refuses_reads = !room_.engine.refuses_reads;
                break;
            case 2:
                room_.display.resize({15360 + 500 * draw(12), 11520});
                break;
            case 3:
                room_.display.strike({.key = Key::D, .alt = true, .character = U'd'}, room_.desktop);
                break;
            case 4:
                room_.display.strike({.key = Key::Enter, .character = U'\r'}, room_.desktop);
                break;
            default:
                room_.seconds_pass(70);
        }
    }

    /// The middle of something that is on the screen, mostly.
    Point somewhere() {
        const auto forms = room_.desktop.visible_forms();
        if (forms.empty() || draw(12) == 0) return {15 * draw(1100), 15 * draw(800)};
        const Form& form = draw(3) > 0 ? *forms.back() : *one_of(forms);
        if (form.controls().empty()) return {form.Left + 10, form.Top + 10};
        return centre_on_screen(*one_of(form.controls()));
    }

    [[nodiscard]] Control* control_at(Point place) const {
        const Form* form = room_.desktop.form_at(place);
        return form == nullptr ? nullptr : form->control_at({place.x - form->Left, place.y - form->Top});
    }

    void clicks(Point place) {
        Control* control = control_at(place);
        const auto* image = as<Image>(control);
        if (image != nullptr && image->Picture == art::kExit && draw(200) > 0) return;  // it would be over too soon
        if (image != nullptr && image->Picture == art::kClose && draw(10) > 0) return;
        if (draw(3) > 0) room_.display.idle(Mouse::kDoubleClickTime * 2);
        auto* combo = as<ComboBox>(control);
        auto* list = as<ListBox>(control);
        if (combo != nullptr && !combo->entries().empty()) {
            room_.display.pick(*combo, index_in(combo->entries()), place);
        } else if (list != nullptr && !list->entries().empty()) {
            const std::size_t row = draw(9) == 0 ? MousePress::kBelowTheRows : index_in(list->entries());
            for (int i = draw(3); i >= 0; --i) room_.display.click(place, row);
        } else {
            room_.display.press(place);
            room_.display.release(draw(5) == 0 ? somewhere() : place);
        }
    }

    void types() {
        constexpr std::string_view kKeys = "abcdefghijklmnopqrstuvwxyzAEIOU0123456789 .'\r\b";
        auto* board = room_.program.forms.find<frmSimpleKeyBoard>();
        const bool knows = board != nullptr && draw(2) == 0;
        const char key = knows ? board->DragKey[0].Tag->front() : one_of(kKeys);
        room_.display.strike({.character = static_cast<char32_t>(key)}, room_.desktop);
    }

    void drags(Point from, Point to) {
        room_.display.idle(Mouse::kDoubleClickTime * 2);
        if (as<PictureBox>(control_at(from)) == nullptr) return;
        room_.display.press(from);
        room_.display.move(somewhere());
        room_.display.move(to);
        room_.display.release(to);
    }

    void puts_a_tile_where_it_belongs() {
        auto* board = room_.program.forms.find<frmSimpleKeyBoard>();
        if (board == nullptr) return;
        const PictureBox& tile = board->DragKey[draw(kTileCount)];
        for (const PictureBox& key : board->Keys) {
            if (key.Tag == tile.Tag) return drags(centre_on_screen(tile), centre_on_screen(key));
        }
    }

    Classroom& room_;
    std::minstd_rand chance_;
};

void expect_order(Classroom& room) {
    const auto forms = room.desktop.visible_forms();
    if (room.display.ended()) {
        EXPECT_TRUE(forms.empty());
        return;
    }
    ASSERT_FALSE(forms.empty());
    EXPECT_EQ(forms.front(), room.program.forms.find(FormId::frmBackGround));
    const Form* active = room.desktop.active();
    EXPECT_TRUE(active == nullptr || std::ranges::find(forms, active) != forms.end());
    const bool plays = room.program.forms.find(FormId::frmSimpleKeyBoard) != nullptr;
    EXPECT_TRUE(plays || room.program.forms.find(FormId::frmTimer) == nullptr) << "a clock without a game";
    const State& state = room.state();
    EXPECT_TRUE(0 <= state.KeysDone && state.KeysDone <= state.PanelsDone && state.PanelsDone <= kKeyCount);
    EXPECT_TRUE(0 <= state.TimeElapsed && state.TimeElapsed <= std::max<State::Whole>(state.TimeLimit, 240));
}

TEST(Monkey, FindsNoWayToBreakTheProgram) {
    const std::filesystem::path file = MARROWFEN_MONKEYS_RUN;
    std::cout << "A run that breaks something stays in " << file << ", for marrowfen --replay." << std::endl;
    std::size_t won = 0;
    for (unsigned seed = 1; seed <= 40; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed) + ", recorded in " + file.string());
        Classroom room({"Ann", "Ben"}, file);
        Monkey monkey(room, seed);
        room.start();
        for (int blow = 0; blow < 2000 && !room.display.ended(); ++blow) {
            monkey.hammers();
            expect_order(room);
            if (HasFailure()) return;
        }
        won += room.results().size();
        while (room.display.has_pending_events()) room.desktop.yield();
    }
    EXPECT_GT(won, 0U) << "a monkey that never gets anywhere tests nothing";
    std::filesystem::remove(file);
}

}  // namespace
}  // namespace marrowfen
