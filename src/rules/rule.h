#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "board/frmSimpleKeyBoard.h"

namespace marrowfen {

enum class By : std::uint8_t { Typing, Clicking };

/// One letter or digit that the pupil gives.
struct Answer {
    std::string letter;  ///< as typed; a clicked key gives its capital
    By by = By::Typing;
    PictureBox* key = nullptr;  ///< the board's key that was clicked; nullptr when typed
};

/// Judges answers in the games of one kind, typed and clicked alike. What the two ways do differently stands in a
/// table at the top of each rule's file.
///
/// A cue and a yield let events in, and one of them may end the game. Whoever plays one asks whether the game goes on,
/// and leaves everything alone when it does not.
class Rule {
public:
    explicit Rule(Program& program) : program_(program) {}
    Rule(const Rule&) = delete;
    Rule& operator=(const Rule&) = delete;
    virtual ~Rule() = default;

    virtual void judge(const Answer& answer) = 0;

protected:
    [[nodiscard]] bool cue(std::string_view name);            ///< false: the game has gone meanwhile
    [[nodiscard]] bool yield();                               ///< likewise
    [[nodiscard]] bool cue_and_yield(std::string_view name);  ///< likewise
    [[nodiscard]] frmSimpleKeyBoard& board() const { return *program_.forms.find<frmSimpleKeyBoard>(); }
    [[nodiscard]] Picture small_letter(std::string_view tag) const;
    /// With the last right answer, before its cue.
    void set_won() { program_.state.GameWon = true; }
    /// The result is shown first; the stopwatch stops and the game's forms go after it.
    void end_game();

    Program& program_;

private:
    [[nodiscard]] bool goes_on(const Form* playing) const;
};

}  // namespace marrowfen
