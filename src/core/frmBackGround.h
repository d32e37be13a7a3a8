#pragma once

#include "core/program_form.h"

namespace marrowfen {

/// The yellow backdrop behind everything, for the whole run.
class frmBackGround final : public ListeningForm {
public:
    static constexpr FormId kId = FormId::frmBackGround;
    explicit frmBackGround(Program& program)
        : ListeningForm(program, {.size = {},
                                  .placement = Placement::Maximised,
                                  .level = Level::Ordinary,
                                  .key_preview = KeyPreview::Yes,
                                  .border = Border::Thin,
                                  .spoken = "Backdrop"}) {}
};

}  // namespace marrowfen
