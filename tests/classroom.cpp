#include "classroom.h"

#include <unistd.h>

#include <algorithm>

#include "pupils/frmErrmsg.h"
#include "pupils/frmGames.h"
#include "pupils/frmSelectGame.h"
#include "pupils/frmSettings.h"
#include "results/frmTimer.h"
#include "store/store_builder.h"

namespace marrowfen {

namespace {

// Built once for all tests of the process, and copied for each.
const std::filesystem::path& built_store() {
    static const TemporaryFolder folder;
    static const std::filesystem::path path = [] {
        auto file = folder.path() / "data.mdb";
        EXPECT_EQ(build_store(MARROWFEN_CONTENT_FOLDER, file), std::vector<std::string>{});
        return file;
    }();
    return path;
}

}  // namespace

Point centre_on_screen(const Control& control) {
    const Point centre = control.bounds().centre();
    return {control.form().Left + centre.x, control.form().Top + centre.y};
}

std::ostream& operator<<(std::ostream& out, const Kept& result) {
    return out << result.pupil << ' ' << result.time << " of " << result.limit << ": " << result.points << " in game "
               << result.game;
}

Classroom::Classroom(const std::vector<std::string>& pupils, const std::filesystem::path& recording)
    : desktop(begin_recording(recording) ? recorder->display() : display),
      program(desktop, recorder ? recorder->ports() : Ports{engine, sound, clock, random, files}) {
    std::filesystem::copy_file(built_store(), folder.path() / "data.mdb");
    display.attach(desktop);
    if (recorder) {
        recorder->attach(program);
        display.attach(*recorder);
    }
    program.referee = &referee;
    define_all_forms(program);
    const auto rows = store().open("Pupils");
    for (const std::string& pupil : pupils) {
        EXPECT_FALSE(rows->add_row());
        rows->set_field("PupilName", pupil);
        EXPECT_FALSE(rows->update()) << pupil;
    }
}

bool Classroom::begin_recording(const std::filesystem::path& recording) {
    if (recording.empty()) return false;
    recorder.emplace(tape.emplace(recording), display, Ports{engine, sound, clock, random, files});
    return true;
}

Classroom::~Classroom() {
    EXPECT_EQ(random.unused(), 0U) << "scripted draws were not needed";
    EXPECT_FALSE(display.has_pending_events()) << "a yield that something was to happen in never came";
}

void Classroom::start() {
    const auto failure = program.start();
    ASSERT_FALSE(failure) << failure->reason;
    if (recorder) recorder->started();
}

std::string Classroom::folder_in_logic() const {
    std::string path = folder.path().string();
    std::ranges::replace(path, '/', '\\');
    return path;
}

std::vector<FormId> Classroom::open_forms() const {
    std::vector<FormId> open;
    for (std::size_t i = 0; i < kFormCount; ++i) {
        if (is_open(static_cast<FormId>(i))) open.push_back(static_cast<FormId>(i));
    }
    return open;
}

std::string Classroom::message() {
    return is_open(FormId::frmErrmsg) ? form<frmErrmsg>().ErrMsg.Caption.get() : std::string{};
}

std::vector<Kept> Classroom::results() {
    std::vector<Kept> kept;
    const auto rows = store().open("Hall_of_Fame");
    for (auto row = rows->move_first(); row.value(); row = rows->move_next()) {
        const auto pupil = look_up("Pupils", "PupilName", where_number("Pupil_ID", as_whole(rows->field("Pupil_id"))));
        kept.push_back({pupil, as_text(rows->field("TimeTaken")), as_whole(rows->field("TimeLimit")),
                        as_whole(rows->field("Points")), as_whole(rows->field("GameID"))});
    }
    return kept;
}

Store& Classroom::store() {
    if (!store_) store_ = sqlite.open(program.path("\\data.mdb")).value();
    return *store_;
}

std::string Classroom::look_up(std::string_view table, std::string_view field, std::string_view criterion) {
    const auto rows = store().open(table);
    return rows->find_first(criterion).value() ? as_text(rows->field(field)) : "0";
}

std::vector<std::string> Classroom::heard_and_forgotten() {
    auto heard = sound.heard();
    sound.forget();
    return heard;
}

bool Pupil::can_reach(Control& control, Point on_screen) const {
    Form& form = control.form();
    const bool reaches = room_.desktop.form_at(on_screen) == &form &&
                         form.control_at({on_screen.x - form.Left, on_screen.y - form.Top}) == &control;
    EXPECT_TRUE(reaches) << "a pupil can't reach this control: it is hidden, disabled or covered";
    return reaches;
}

void Pupil::press(Control& control) { presses_and_lets_go_at(control, centre_on_screen(control)); }

void Pupil::presses_and_lets_go_at(Control& control, Point on_screen) {
    const Point centre = centre_on_screen(control);
    if (!can_reach(control, centre)) return;
    thinks();
    room_.display.press(centre);
    room_.display.release(on_screen);
}

void Pupil::clicks_at(Point on_screen) {
    thinks();
    room_.display.click(on_screen);
}

void Pupil::points_at(Control& control) {
    const Point centre = centre_on_screen(control);
    if (can_reach(control, centre)) room_.display.move(centre);
}

void Pupil::drags(Control& tile, Control& target) {
    const Point from = centre_on_screen(tile);
    const Point to = centre_on_screen(target);
    if (!can_reach(tile, from) || !can_reach(target, to)) return;
    thinks();
    room_.display.press(from);
    room_.display.move(to);
    room_.display.release(to);
}

void Pupil::types(std::string_view text) {
    for (const char32_t letter : std::filesystem::path(text).u32string()) {  // which takes UTF-8 apart
        room_.display.strike({.character = letter}, room_.desktop);
    }
}

void Pupil::presses_enter() { room_.display.strike({.key = Key::Enter, .character = U'\r'}, room_.desktop); }

void Pupil::presses_alt_d() { room_.display.strike({.key = Key::D, .alt = true, .character = U'd'}, room_.desktop); }

void Pupil::chooses(ComboBox& combo, std::string_view entry) {
    const auto& entries = combo.entries();
    const auto place = std::ranges::find(entries, entry);
    ASSERT_NE(place, entries.end()) << entry << " is not in the list";
    const Point centre = centre_on_screen(combo);
    if (!can_reach(combo, centre)) return;
    thinks();
    room_.display.pick(combo, static_cast<std::size_t>(place - entries.begin()), centre);
}

void Pupil::clicks(ListBox& list, std::string_view beginning, int times) {
    const auto& entries = list.entries();
    const auto place = std::ranges::find_if(entries, [&](const std::string& e) { return e.starts_with(beginning); });
    ASSERT_NE(place, entries.end()) << beginning << " is not in the list";
    clicks_row(list, static_cast<std::size_t>(place - entries.begin()), times);
}

void Pupil::clicks_row(ListBox& list, std::size_t row, int times) {
    const Point corner{list.form().Left + list.Left, list.form().Top + list.Top};  // which a message leaves free
    if (!can_reach(list, corner)) return;
    thinks();
    for (int i = 0; i < times; ++i) room_.display.click(corner, row);
}

void Pupil::selects(ListBox& list, std::string_view beginning) { clicks(list, beginning, 1); }

void Pupil::double_clicks(ListBox& list, std::string_view beginning) { clicks(list, beginning, 2); }

void Pupil::double_clicks_below(ListBox& list) { clicks_row(list, MousePress::kBelowTheRows, 2); }

void Pupil::thinks() { room_.display.idle(Mouse::kDoubleClickTime * 2); }

void Pupil::sits_down(std::string_view name) { chooses(room_.form<frmSelectGame>().cmbPupils, name); }

std::string Pupil::entry_of(int template_id) {
    return room_.look_up("Templates", "GameNumber", where_number("Template_ID", template_id)) + ". ";
}

void Pupil::picks_game(int template_id) { double_clicks(room_.form<frmGames>().List1, entry_of(template_id)); }

void Pupil::joins(const Team& team) {
    auto& form = room_.form<frmSettings>();
    press(team.time_limit == kRedTeam.time_limit      ? form.redDe
          : team.time_limit == kYellowTeam.time_limit ? form.YellowDe
          : team.time_limit == kGreenTeam.time_limit  ? form.GreenDe
                                                      : form.BlueDe);
}

void Pupil::starts_the_clock() { presses(&frmTimer::Timer_Start_De); }

}  // namespace marrowfen
