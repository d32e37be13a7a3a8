#include "replay/recorder.h"

#include <algorithm>

#include "replay/event_line.h"

namespace marrowfen {

Recorder::Recorder(RecordingTape& tape, Display& display, const Ports& world)
    : tape_(tape),
      display_(&display, display.screen()),
      store_(tape, &world.store),
      sound_(tape, &world.sound),
      clock_(tape, &world.clock),
      random_(tape, &world.random),
      files_(world.files) {
    const Size screen = display.screen();
    tape_.note("screen " + std::to_string(screen.width) + " " + std::to_string(screen.height));
}

void Recorder::started() { look(); }

Taker Recorder::handle(const InputEvent& event) {
    const auto after = std::max(event.time - last_, std::chrono::milliseconds(0));
    last_ += after;
    tape_.write(to_text(EventLine{after, display_.yield_now(), to_text(event.what, program_->forms)}));
    const Taker taker = program_->desktop.handle(event);
    if (display_.yield_now() == 0) look();
    return taker;
}

void Recorder::look() {
    if (!display_.take_dirty()) return;
    for (const std::string& line : watch_.changes(program_->desktop, program_->forms, files_.program_folder())) {
        tape_.note(line);
    }
}

}  // namespace marrowfen
