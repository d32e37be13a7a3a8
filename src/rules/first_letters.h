#pragma once

#include "rules/rule.h"

namespace marrowfen {

/// A picture is shown; the pupil gives the first letter of its word. 26 cards make a game.
class FirstLetters final : public Rule {
public:
    using Rule::Rule;
    void judge(const Answer& answer) override;
};

}  // namespace marrowfen
