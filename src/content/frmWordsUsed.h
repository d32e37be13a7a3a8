#pragma once

#include "core/program_form.h"

namespace marrowfen {

/// A strip along the board's lower edge with what the pupil has given so far.
class frmWordsUsed final : public ListeningForm {
public:
    static constexpr FormId kId = FormId::frmWordsUsed;
    explicit frmWordsUsed(Program& program);

    Label Wordsfound{*this, {105, 30, 10455, 630}, "", comic(21.75), kRed};

    void place() override;
};

}  // namespace marrowfen
