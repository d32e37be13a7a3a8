#pragma once

#include "rules/rule.h"

namespace marrowfen {

/// A word and its ending are shown; first letters turn the ending into other words. Seven words make a game.
class RhymingWords final : public Rule {
public:
    using Rule::Rule;
    void judge(const Answer& answer) override;

private:
    struct Manner;
    static const Manner kTyped;
    static const Manner kClicked;
    /// Whether the letter counts, which is told by a cue if not. Nothing: the game has gone meanwhile.
    [[nodiscard]] std::optional<bool> is_right(const Answer& answer, const Manner& manner);
    [[nodiscard]] bool accept(const Answer& answer, const Manner& manner);
    void next_word(const Manner& manner);
};

}  // namespace marrowfen
