#pragma once

#include "core/program_form.h"

namespace marrowfen {

/// The word card of the rhyming games: how many words to find, a word, the letter tried, and the ending.
class frmWord final : public ListeningForm {
public:
    static constexpr FormId kId = FormId::frmWord;
    explicit frmWord(Program& program);

    // clang-format off
    //                        left  top  width height
    Label Label1  {*this, {     45,  45,  4470,  540}, "", comic(15.75), kRed};
    Label theword {*this, {   4605,  15,  1035,  615}, "", comic(20.25), kRed};
    Image Image1  {*this, {   5745,  15,   615,  540}};
    Label end     {*this, {   6495, -15,  1725,  600}, "", comic(20.25), rgb(64, 200, 255)};
    // clang-format on

    void load() override;   ///< when no word can be read it goes again
    void place() override;  ///< in the upper right corner of the screen

    /// Draws the word for the group at `WordCursor`, or for the next group that has three rows at least. False: there
    /// is no such group any more. Then, and on failure, the card stays as it is.
    [[nodiscard]] Result<bool> draw_word();
    void show_words_left();
};

}  // namespace marrowfen
