#pragma once

#include <random>
#include <set>
#include <string>

#include "answers.h"
#include "pupils/frmGames.h"

namespace marrowfen {

/// Hammers on everything, as a child does who has found out that it makes noise, but knows the answers and plays every
/// game to its end. Store, clock and screen misbehave meanwhile. After each event all must hold that always holds.
class Monkey final : public InputSink {
public:
    Monkey(Classroom& room, unsigned seed);

    /// Until the program has ended, something does not hold, or about so many events have been handed over.
    void plays(std::size_t events);
    [[nodiscard]] std::size_t events() const { return events_; }
    [[nodiscard]] const std::string& complaint() const { return complaint_; }  ///< empty: all held

    Taker handle(const InputEvent& event) override;

private:
    [[nodiscard]] int draw(int n) { return static_cast<int>(chance_() % static_cast<unsigned>(n)); }
    [[nodiscard]] bool once_in(int n) { return draw(n) == 0; }
    [[nodiscard]] std::size_t index_in(const auto& things) {
        return static_cast<std::size_t>(draw(static_cast<int>(things.size())));
    }
    [[nodiscard]] auto& one_of(const auto& things) { return things[index_in(things)]; }
    template <class F>
    [[nodiscard]] F* open() const {
        return room_.is_open(F::kId) ? room_.program.forms.find<F>() : nullptr;
    }

    // What a pupil does who wants to get on.
    void plays_on();
    void plays_on(frmSimpleKeyBoard& board);
    void chooses_a_game(frmGames& games);

    // What nobody would do.
    void fools_about();
    void hammers_inside();
    void meddles();
    void types_anything();
    void moves_the_ring();
    void presses_anything(Point at);
    void drags(Point from, Point to);
    [[nodiscard]] Point somewhere();
    [[nodiscard]] Control* control_at(Point place) const;
    void clicks(const Control& control, std::optional<std::size_t> row = {});
    void types(char32_t character);

    void look_at_the_board();
    [[nodiscard]] std::string what_is_wrong() const;
    [[nodiscard]] std::string what_is_wrong_with_the_desktop() const;
    [[nodiscard]] std::string what_is_wrong_with_the_game() const;

    Classroom& room_;
    InputSink& program_;
    Answers answers_;
    std::minstd_rand chance_;
    std::size_t events_ = 0;
    int depth_ = 0;  ///< of events within events
    bool is_tired_ = false;
    std::vector<Picture> faces_;  ///< of the board's keys before the game
    State::Whole time_before_ = 0;
    std::string complaint_;
};

/// One run of the program with a store of its own.
struct Day {
    std::size_t events = 0;
    std::size_t results = 0;
    std::set<int> games;    ///< that a result was kept of
    std::string complaint;  ///< empty: all held
};
/// With a file named, the day is recorded there, and is the same day. Until the program ends, or about 5000 events.
[[nodiscard]] Day spend_a_day(unsigned seed, const std::filesystem::path& recording = {});

}  // namespace marrowfen
