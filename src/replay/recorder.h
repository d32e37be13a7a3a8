#pragma once

#include "core/program.h"
#include "platform/forms/input.h"
#include "replay/screen_watch.h"
#include "replay/tape.h"
#include "replay/taped_display.h"
#include "replay/taped_ports.h"

namespace marrowfen {

/// Stands between the program and the world, and writes down all that decides a run. The world stays the one it was.
class Recorder final : public InputSink {
public:
    Recorder(RecordingTape& tape, Display& display, const Ports& world);

    [[nodiscard]] Display& display() { return display_; }
    [[nodiscard]] Ports ports() { return {store_, sound_, clock_, random_, files_}; }
    void attach(Program& program) { program_ = &program; }
    void started();  ///< the program has been: what has come on the screen is written down

    Taker handle(const InputEvent& event) override;

private:
    void look();

    RecordingTape& tape_;
    TapedDisplay display_;
    TapedStoreEngine store_;
    TapedSound sound_;
    TapedClock clock_;
    TapedRandom random_;
    Files& files_;
    Program* program_ = nullptr;
    ScreenWatch watch_;
    std::chrono::milliseconds last_{};
};

}  // namespace marrowfen
