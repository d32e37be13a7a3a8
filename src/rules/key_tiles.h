#pragma once

#include "rules/rule.h"

namespace marrowfen {

/// A tile shows a letter; typing it puts the tile on its key. 36 filled keys win, typed or dragged.
class KeyTiles final : public Rule {
public:
    using Rule::Rule;
    void judge(const Answer& answer) override;
    void win(PictureBox& tile);
};

}  // namespace marrowfen
