#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "app/all_forms.h"
#include "core/teams.h"
#include "platform/headless/headless_display.h"
#include "platform/headless/scripted.h"
#include "platform/sqlite/sqlite_store.h"
#include "platform/system/disk_files.h"
#include "replay/recorder.h"
#include "rules/game_referee.h"
#include "stubborn_store.h"
#include "temporary_folder.h"

namespace marrowfen {

struct Kept {
    std::string pupil, time;
    int limit = 0, points = 0, game = 0;
    friend bool operator==(const Kept&, const Kept&) = default;
};
std::ostream& operator<<(std::ostream& out, const Kept& result);

/// The whole program on a screen that nobody sees, with a store of its own. Draws and events that were scripted and
/// never came fail the test.
class Classroom {
public:
    /// With a file named, the run is recorded there.
    explicit Classroom(const std::vector<std::string>& pupils = {"Ann", "Ben"},
                       const std::filesystem::path& recording = {});
    Classroom(const Classroom&) = delete;
    Classroom& operator=(const Classroom&) = delete;
    ~Classroom();

    TemporaryFolder folder;
    HeadlessDisplay display;
    DiskFiles files{folder.path()};
    SqliteStoreEngine sqlite{files};
    StubbornEngine engine{sqlite};
    SoundRecorder sound;
    ScriptedClock clock;
    ScriptedRandom random;
    std::optional<RecordingTape> tape;
    std::optional<Recorder> recorder;
    Desktop desktop;
    Program program;
    GameReferee referee{program};

    void start();  ///< fails the test when the program can't start
    [[nodiscard]] State& state() { return program.state; }
    [[nodiscard]] std::string folder_in_logic() const;  ///< with backslashes, as all paths of the program
    void seconds_pass(int seconds) { display.pass(std::chrono::seconds(seconds)); }

    template <class F>
    [[nodiscard]] F& form() {
        F* found = program.forms.find<F>();
        if (found == nullptr) throw std::logic_error("the form is not open");
        return *found;
    }
    [[nodiscard]] bool is_open(FormId id) const {
        const Form* form = program.forms.find(id);
        return form != nullptr && form->visible();
    }
    [[nodiscard]] std::vector<FormId> open_forms() const;  ///< those on the screen, by name
    [[nodiscard]] std::string message();                   ///< on show; empty: none is
    [[nodiscard]] std::vector<Kept> results();             ///< as kept, oldest first
    /// The test's own look into the store, which nothing stands in the way of.
    [[nodiscard]] Store& store();
    [[nodiscard]] std::string look_up(std::string_view table, std::string_view field, std::string_view criterion);
    [[nodiscard]] std::vector<std::string> heard_and_forgotten();

private:
    [[nodiscard]] bool begin_recording(const std::filesystem::path& recording);
    std::unique_ptr<Store> store_;
};

/// The middle of a control, where a press hits it if nothing lies above.
[[nodiscard]] Point centre_on_screen(const Control& control);

/// Does what a pupil can do with a mouse and a keyboard, and fails the test for what no pupil can do: press what is
/// hidden, disabled or covered by another form.
class Pupil {
public:
    explicit Pupil(Classroom& room) : room_(room) {}

    template <class F>
    void presses(Image F::*button) {
        press(room_.form<F>().*button);
    }
    void press(Control& control);  ///< down and up in its middle
    void presses_and_lets_go_at(Control& control, Point on_screen);
    void clicks_at(Point on_screen);  ///< whatever is there, or nothing
    void points_at(Control& control);
    void drags(Control& tile, Control& target);
    void types(std::string_view text);
    void presses_enter();
    void presses_alt_d();
    void chooses(ComboBox& combo, std::string_view entry);
    void selects(ListBox& list, std::string_view beginning);
    void double_clicks(ListBox& list, std::string_view beginning);
    void double_clicks_below(ListBox& list);  ///< under its last row
    void thinks();                            ///< before each press: two are no double click

    void sits_down(std::string_view name);                ///< from the first screen to the game list
    void picks_game(int template_id);                     ///< from the game list
    void joins(const Team& team);                         ///< on the team form
    void starts_the_clock();                              ///< on the stopwatch
    [[nodiscard]] std::string entry_of(int template_id);  ///< in the list of games

private:
    [[nodiscard]] bool can_reach(Control& control, Point on_screen) const;
    void clicks(ListBox& list, std::string_view beginning, int times);
    void clicks_row(ListBox& list, std::size_t row, int times);
    Classroom& room_;
};

}  // namespace marrowfen
