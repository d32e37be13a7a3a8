#pragma once

#include "rules/rule.h"

namespace marrowfen {

/// A word and its ending are shown; first letters turn the ending into other words. Seven words make a game.
class RhymingWords final : public Rule {
public:
    using Rule::Rule;
    void judge(const Answer& answer) override;

private:
    /// Whether the letter and the ending make a word of the table for which it has not been given yet.
    [[nodiscard]] Result<bool> is_right(const std::string& letter);
    [[nodiscard]] bool accept(const std::string& letter, std::string_view cue);  ///< false: the game has gone meanwhile
    void next_word(std::string_view cue);
    /// When it can't be read, the word that is finished stays on show, and what is given next tries again.
    void draw_next_word();
};

}  // namespace marrowfen
