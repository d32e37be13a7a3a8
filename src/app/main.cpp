#include <QApplication>
#include <QCoreApplication>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>

#include "app/all_forms.h"
#include "app/options.h"
#include "platform/audio/late_sound.h"
#include "platform/qt/failure_window.h"
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

int tell_start_failure(const Files& files, const std::filesystem::path& folder, const StoreFailure& failure) {
    show_start_failure(files, "Marrowfen can't start. The file " + (folder / "data.mdb").string() +
                                  " holds the pupils and the games, and it can't be opened: " + failure.reason +
                                  ". Put a copy of it there that can be read and written, or run ./run where "
                                  "Marrowfen was built, which makes a new one.");
    return EXIT_FAILURE;
}

int play(const std::filesystem::path& folder) {
    DiskFiles files(folder);
    SqliteStoreEngine store(files);
    LateSound sound(files);
    QtClock clock;
    SeededRandom random;
    QtDisplay display(files);
    Running games(display, {store, sound, clock, random, files});
    display.attach(games.desktop, games.desktop);
    if (const auto failure = games.program.start()) return tell_start_failure(files, folder, *failure);
    return display.run();
}

int play_and_record(const std::filesystem::path& folder, const std::filesystem::path& file) {
    RecordingTape tape(file);
    if (!tape.works()) {
        (void)std::fprintf(stderr, "marrowfen: %s can't be written\n", file.c_str());
        return EXIT_FAILURE;
    }
    DiskFiles files(folder);
    SqliteStoreEngine store(files);
    LateSound sound(files);
    QtClock clock;
    SeededRandom random;
    QtDisplay display(files);
    Recorder recorder(tape, display, {store, sound, clock, random, files});
    Running games(recorder.display(), recorder.ports());
    recorder.attach(games.program);
    display.attach(games.desktop, recorder);
    if (const auto failure = games.program.start()) return tell_start_failure(files, folder, *failure);
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
        go_on();
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
