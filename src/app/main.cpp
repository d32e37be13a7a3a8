#include <QApplication>
#include <QCoreApplication>
#include <cstdlib>
#include <filesystem>

#include "app/all_forms.h"
#include "platform/audio/sdl_sound.h"
#include "platform/qt/failure_window.h"
#include "platform/qt/qt_clock.h"
#include "platform/qt/qt_display.h"
#include "platform/qt/toolkit.h"
#include "platform/sqlite/sqlite_store.h"
#include "platform/system/disk_files.h"
#include "platform/system/seeded_random.h"
#include "rules/game_referee.h"

using namespace marrowfen;

int main(int argc, char** argv) {
    const auto toolkit = start_toolkit(argc, argv);
    const std::filesystem::path folder = QCoreApplication::applicationDirPath().toStdString();
    DiskFiles files(folder);
    SqliteStoreEngine store(files);
    SdlSound sound(files);
    QtClock clock;
    SeededRandom random;

    QtDisplay display(files);
    Desktop desktop(display);
    display.attach(desktop);
    Program program(desktop, {store, sound, clock, random, files});
    GameReferee referee(program);
    program.referee = &referee;
    define_all_forms(program);
    display.on_close_requested = [&program] { program.close_requested(); };

    if (const auto failure = program.start()) {
        show_start_failure(files, "Marrowfen can't start. The file " + (folder / "data.mdb").string() +
                                      " holds the pupils and the games, and it can't be opened: " + failure->reason +
                                      ". Put a copy of it there that can be read and written, or run ./run where "
                                      "Marrowfen was built, which makes a new one.");
        return EXIT_FAILURE;
    }
    return display.run();
}
