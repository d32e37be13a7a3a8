#include <QApplication>
#include <QCoreApplication>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>

#include "app/all_forms.h"
#include "app/options.h"
#include "copies/advice.h"
#include "platform/audio/late_sound.h"
#include "platform/qt/failure_window.h"
#include "platform/qt/only_run.h"
#include "platform/qt/qt_clock.h"
#include "platform/qt/qt_display.h"
#include "platform/qt/toolkit.h"
#include "platform/sqlite/sqlite_store.h"
#include "platform/system/disk_files.h"
#include "platform/system/seeded_random.h"
#include "replay/player.h"
#include "replay/recorder.h"
#include "rules/game_referee.h"

namespace marrowfen {

namespace {

/// The program with its forms and rules, in whatever world.
struct Running {
    Running(Display& display, const Ports& ports) : desktop(display), program(desktop, ports), referee(program) {
        program.referee = &referee;
        define_all_forms(program);
    }
    Desktop desktop;
    Program program;
    GameReferee referee;
};

/// Tells a person what is wrong with the store until it can be opened. False: the person has given up.
bool wait_for_store(const Files& files, const Clock& clock) {
    constexpr std::chrono::milliseconds kPatience{200};  // the window that tells of it must not stand still
    SqliteStoreEngine store(files, kPatience);
    const std::string path = files.program_folder() + "\\data.mdb";
    const auto try_it = [&]() -> std::optional<std::string> {
        store.patience().begin_turn();
        const auto opened = store.open(path);
        if (opened.failure() == nullptr) return std::nullopt;
        const auto file = files.find(path);
        return start_advice(*opened.failure(), Copies(file ? *file : *files.find(files.program_folder()) / "data.mdb"),
                            clock);
    };
    const auto advice = try_it();
    return !advice || show_start_failure(files, *advice, try_it);
}

/// What goes on round the games while they run: each event begins a turn of patience with other computers, whoever has
/// to wait sees it, and a copy of the store is made each day.
class Housekeeping final : public InputSink {
public:
    Housekeeping(SqliteStoreEngine& store, const Files& files, const Clock& clock, InputSink& games, Program& program)
        : store_(store), games_(games), copy_(Copies(files.find(files.program_folder() + "\\data.mdb").value_or(""))) {
        store_.patience().on_wait = [this] { show_waiting(true); };
        program.on_seated = [this, &clock] { copy_.begin(clock.today()); };
    }

    Taker handle(const InputEvent& event) override {
        if (const auto failure = copy_.take_failure()) tell(*failure);
        ++running_;  // a handler that lets events in runs round another
        store_.patience().begin_turn();
        const Taker taker = games_.handle(event);
        if (--running_ == 0) show_waiting(false);
        return taker;
    }

private:
    void tell(const StoreFailure& failure) {
        if (failure.trouble == Trouble::Damaged) store_.condemn(failure);
        (void)std::fprintf(stderr, "marrowfen: today's copy can't be made: %s\n", failure.reason.c_str());
    }

    void show_waiting(bool waits) {
        if (waits == shown_) return;
        shown_ = waits;
        if (waits) {
            QApplication::setOverrideCursor(Qt::WaitCursor);
        } else {
            QApplication::restoreOverrideCursor();
        }
    }

    SqliteStoreEngine& store_;
    InputSink& games_;
    DailyCopy copy_;
    int running_ = 0;
    bool shown_ = false;
};

/// Whether the games may begin here. If not, they are being played already, and this start has shown or told so.
bool is_first(OnlyRun& run, const Files& files) {
    const std::string sentence =
        "Marrowfen is open already, but this desktop did not let it come to the front. Look for its window among the "
        "others.";
    auto place = run.find_place();
    const auto look_again = [&]() -> std::optional<std::string> {
        place = run.find_place();
        return place == OnlyRun::Place::SecondBehind ? std::optional(sentence) : std::nullopt;
    };
    if (place == OnlyRun::Place::SecondBehind && !show_start_failure(files, sentence, look_again)) return false;
    return place == OnlyRun::Place::First;
}

void let_second_starts_show(OnlyRun& run, QtDisplay& display) {
    run.on_second_start = [&display](OnlyRun::Answer answer) { display.window().come_to_front(std::move(answer)); };
}

int play(const std::filesystem::path& folder) {
    DiskFiles files(folder);
    OnlyRun run(folder);
    if (!is_first(run, files)) return EXIT_SUCCESS;
    QtClock clock;
    SqliteStoreEngine store(files);
    LateSound sound(files);
    SeededRandom random;
    QtDisplay display(files);
    Running games(display, {store, sound, clock, random, files});
    Housekeeping round(store, files, clock, games.desktop, games.program);
    display.attach(games.desktop, round);
    let_second_starts_show(run, display);
    while (games.program.start()) {
        if (!wait_for_store(files, clock)) return EXIT_FAILURE;
    }
    return display.run();
}

int play_and_record(const std::filesystem::path& folder, const std::filesystem::path& file) {
    DiskFiles files(folder);
    OnlyRun run(folder);
    if (!is_first(run, files)) return EXIT_SUCCESS;
    RecordingTape tape(file);
    if (!tape.works()) {
        (void)std::fprintf(stderr, "marrowfen: %s can't be written\n", file.c_str());
        return EXIT_FAILURE;
    }
    QtClock clock;
    if (!wait_for_store(files, clock)) return EXIT_FAILURE;
    SqliteStoreEngine store(files);
    LateSound sound(files);
    SeededRandom random;
    QtDisplay display(files);
    Recorder recorder(tape, display, {store, sound, clock, random, files});
    Running games(recorder.display(), recorder.ports());
    recorder.attach(games.program);
    Housekeeping round(store, files, clock, recorder, games.program);
    display.attach(games.desktop, round);
    let_second_starts_show(run, display);
    if (const auto failure = games.program.start()) {
        (void)std::fprintf(stderr, "marrowfen: the pupils and games can't be read: %s\n", failure->reason.c_str());
        return EXIT_FAILURE;
    }
    recorder.started();
    return display.run();
}

/// Whoever watches a replay can close the window; all else that they do goes nowhere.
class Spectator final : public InputSink {
public:
    Taker handle(const InputEvent& event) override {
        if (std::holds_alternative<CloseRequest>(event.what)) QApplication::exit(EXIT_SUCCESS);
        return Taker::Nobody;
    }
};

int replay(const std::filesystem::path& folder, const Options& options) {
    std::string reason;
    auto lines = read_recording(options.replay, reason);
    if (!lines) {
        (void)std::fprintf(stderr, "marrowfen: %s can't be replayed: %s\n", options.replay.c_str(), reason.c_str());
        return EXIT_FAILURE;
    }
    DiskFiles files(folder);
    LateSound sound(files);
    QtDisplay display(files);
    Player player(std::move(*lines), files, {&display, &sound});
    display.show_whole(player.screen());
    player.on_screen_size = [&display](Size screen) { display.show_whole(screen); };
    Running games(player.display(), player.ports());
    player.attach(games.program);
    Spectator spectator;
    display.attach(games.desktop, spectator);
    if (!games.program.start()) player.started();

    std::function<void()> go_on = [&] {
        if (const auto after = player.next_after()) {
            QTimer::singleShot(options.fast ? std::chrono::milliseconds(0) : *after, &display.window(), [&] {
                player.step();
                go_on();
            });
        } else {
            QApplication::exit(EXIT_SUCCESS);
        }
    };
    if (!player.ended()) {
        QTimer::singleShot(0, &display.window(), go_on);  // which may have nothing to do but to end what has begun
        QApplication::exec();
    }
    const std::string complaint = player.complaint();
    if (complaint.empty()) return EXIT_SUCCESS;
    (void)std::fprintf(stderr, "%s\n", complaint.c_str());
    return EXIT_FAILURE;
}

int run(int argc, char** argv) {
    int status = EXIT_SUCCESS;
    const auto options = read_options(argc, argv, status);
    if (!options) return status;
    int only_the_name = 1;  // the toolkit has options of its own, which are not ours
    const auto toolkit = start_toolkit(only_the_name, argv);
    const std::filesystem::path folder = QCoreApplication::applicationDirPath().toStdString();
    if (!options->replay.empty()) return replay(folder, *options);
    return options->record.empty() ? play(folder) : play_and_record(folder, options->record);
}

}  // namespace

}  // namespace marrowfen

int main(int argc, char** argv) { return marrowfen::run(argc, argv); }
