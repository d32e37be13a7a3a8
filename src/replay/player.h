#pragma once

#include <functional>
#include <optional>

#include "core/program.h"
#include "replay/event_line.h"
#include "replay/screen_watch.h"
#include "replay/tape.h"
#include "replay/taped_display.h"
#include "replay/taped_ports.h"

namespace marrowfen {

/// Plays a recording: hands its events over one by one, answers for the world, and holds what comes of it against what
/// came of it then. It needs no store; a screen and a loudspeaker only where somebody wants to see and hear it.
class Player {
public:
    struct Audience {
        Display* screen = nullptr;
        SoundDevice* sound = nullptr;
    };
    /// `lines` of the recording without its head.
    Player(std::vector<std::string> lines, Files& files, const Audience& audience);

    [[nodiscard]] Size screen() const { return display_.screen(); }
    [[nodiscard]] Display& display() { return display_; }
    [[nodiscard]] Ports ports() { return {store_, sound_, clock_, random_, files_}; }
    void attach(Program& program) { program_ = &program; }
    void started();  ///< the program has been

    /// How long after the last event the next one comes; nothing: there is none, or the play has ended.
    [[nodiscard]] std::optional<std::chrono::milliseconds> next_after();
    void step();  ///< hands the next event over
    /// What went otherwise, in lines for a person; empty: nothing so far.
    [[nodiscard]] std::string complaint() const;
    [[nodiscard]] bool ended() const { return display_.ended(); }  ///< the program has
    std::function<void(Size)> on_screen_size;                      ///< the recorded screen has another one now

private:
    class YieldingDisplay final : public TapedDisplay {
    public:
        YieldingDisplay(Player& player, Display* world, Size screen) : TapedDisplay(world, screen), player_(player) {}
        void start(Timer&) override {}  // ticks come from the recording
        void stop(Timer&) override {}

    private:
        void in_yield(std::size_t number) override { player_.play_yield(number); }
        Player& player_;
    };

    [[nodiscard]] Size read_screen();
    [[nodiscard]] std::optional<EventLine> next_event(
        std::size_t yield) const;  ///< nothing: what comes is another thing
    void play_yield(std::size_t number);
    void hand_over(const EventLine& line);
    void look();

    PlayingTape tape_;
    YieldingDisplay display_;
    TapedStoreEngine store_;
    TapedSound sound_;
    TapedClock clock_;
    TapedRandom random_;
    Files& files_;
    Program* program_ = nullptr;
    ScreenWatch watch_;
    std::chrono::milliseconds now_{};
    std::string form_;  // that was active when the event came
};

}  // namespace marrowfen
