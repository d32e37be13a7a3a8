#pragma once

#include "core/program_form.h"

namespace marrowfen {

/// The sentence card: a word class, and a sentence to find a word of that class in.
class frmSentence final : public ListeningForm {
public:
    static constexpr FormId kId = FormId::frmSentence;
    explicit frmSentence(Program& program);

    // clang-format off
    //                           left  top  width height
    Label   Label1   {*this, {     75,   0,  1095,  375}, "Choose a", comic(14.25), kRed};
    TextBox wordtype {*this, {   1230,   0,  1275,  390}, TextBox::Mode::ReadOnly,
                      {.font = comic_underlined(14.25), .back = kYellow, .framed = false,
                       .stand = TextBox::Stand::Top}, TextBox::kNoLimit, "Text1"};
    Label   Label2   {*this, {   2655,   0,  2730,  345}, "from this sentence", comic(14.25), kRed};
    TextBox Sentence {*this, {     75, 450,  5370,  375}, TextBox::Mode::ReadOnly,
                      {.font = comic(14.25), .back = kYellow, .framed = false}, TextBox::kNoLimit, "Text2"};
    // clang-format on

    void load() override;   ///< when no sentence can be read it goes again
    void place() override;  ///< in the upper right corner of the screen

    /// How many sentences the table has.
    [[nodiscard]] Result<State::Whole> count_sentences() const;
    /// Shows a row of the table's `count`, counted from 1, or the next one that is complete, and asks for one of its
    /// three words at random. Gives the number of the row on show; 0: no row is complete. Then, and on failure, the
    /// card stays as it is.
    [[nodiscard]] Result<State::Whole> show_sentence(State::Whole first, State::Whole count);

private:
    [[nodiscard]] Result<State::Whole> show_first_sentence();
};

}  // namespace marrowfen
