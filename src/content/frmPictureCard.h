#pragma once

#include "content/card_words.h"
#include "core/program_form.h"

namespace marrowfen {

/// One picture card of 26, above the right end of the board.
class frmPictureCard final : public ProgramForm {
public:
    static constexpr FormId kId = FormId::frmPictureCard;
    static constexpr State::Whole kCards{kCardWords.size()};
    explicit frmPictureCard(Program& program);

    Image pic{*this, {0, 0, 1785, 1695}, {}, {}, Stretch::No};

    void SetPics();  ///< lays out all 26 cards
    void load() override;
    void place() override;

    /// Draws a card that this game has not had yet, shows it and gives its word. Needs one card at least.
    std::string draw_card();
};

}  // namespace marrowfen
