#pragma once

#include "core/artwork.h"
#include "core/program_form.h"
#include "platform/forms/picture_button.h"

namespace marrowfen {

/// A child who has not played before types a name and goes straight on to the games as that pupil.
class frmNewPupil final : public ProgramForm {
public:
    static constexpr FormId kId = FormId::frmNewPupil;
    static constexpr std::size_t kLongestName = 50;  ///< characters; the store takes no more
    explicit frmNewPupil(Program& program);

    // clang-format off
    //                              left   top  width height
    Label   Label2       {*this, {   360,  105,  5640,  810}, "Please enter your name", comic(26.25), kRed};
    TextBox txtpupilname {*this, {   135, 1020,  6105,  510}, TextBox::Mode::Editable, {.font = comic(15.75)},
                          kLongestName};
    Image   BackPr       {*this, {    60, 2460,  2730,  675}, art::kBackPressed};
    Image   BackDe       {*this, {    60, 2460,  2745,  660}, art::kBack, "Back"};
    Image   NextPr       {*this, {  3555, 2460,  2760,  660}, art::kNextPressed};
    Image   NextDe       {*this, {  3555, 2460,  2745,  690}, art::kNext, "Next"};
    // clang-format on

    void resized() override { desktop().set_focus(txtpupilname); }

    [[nodiscard]] Control* way_out() override { return &BackDe; }

private:
    PictureButton back_{BackDe, BackPr, [this] { back(); }};
    PictureButton next_{NextDe, NextPr, [this] { next(); }};

    void back();
    void next();
    [[nodiscard]] std::optional<StoreFailure> add(const std::string& name);  ///< who is then the pupil who plays
};

}  // namespace marrowfen
