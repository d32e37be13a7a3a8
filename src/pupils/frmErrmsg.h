#pragma once

#include "core/artwork.h"
#include "core/program_form.h"
#include "platform/forms/picture_button.h"

namespace marrowfen {

/// Tells a pupil in one sentence what must be done first. Other forms stay alive below, but it stays the active form
/// until Continue is pressed.
class frmErrmsg final : public ProgramForm, public Teller {
public:
    static constexpr FormId kId = FormId::frmErrmsg;
    explicit frmErrmsg(Program& program);

    // clang-format off
    //                            left   top  width height
    Shape   Shape1     {*this, {    60,   60, 10065, 4335}, {.outline = kBlue, .outline_pixels = 5}};
    Label   ErrMsg     {*this, {   135,   60,  9945, 3570}, "", comic_bold(18), kRed, Align::Middle};
    TextBox Text1      {*this, {   375, 3855,    30,  150}, TextBox::Mode::Editable,
                        {.font = comic(8), .fore = kYellow, .back = kYellow, .framed = false}};
    Image   ContinuePr {*this, {  3780, 3645,  2745,  690}, art::kContinuePressed};
    Image   ContinueDe {*this, {  3840, 3645,  2760,  660}, art::kContinue, "Continue"};
    // clang-format on

    void tell(const std::string& message) override { ErrMsg.Caption = message; }

    [[nodiscard]] Control* way_out() override { return &ContinueDe; }

private:
    PictureButton continue_{ContinueDe, ContinuePr, [this] { program_.forms.unload(kId); }};
};

}  // namespace marrowfen
