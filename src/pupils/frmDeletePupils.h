#pragma once

#include "core/artwork.h"
#include "core/program_form.h"
#include "platform/forms/picture_button.h"

namespace marrowfen {

/// Lets a teacher remove pupils. Their results stay in the hall of fame, under no name.
class frmDeletePupils final : public ProgramForm {
public:
    static constexpr FormId kId = FormId::frmDeletePupils;
    explicit frmDeletePupils(Program& program);

    // clang-format off
    //                            left   top  width height
    Label   Label1    {*this, {     75,   45,  6555,  450}, "Highlight a name from the list below then press delete.",
                       comic(12), kRed};
    ListBox lbkids    {*this, {    180,  600,  6330, 5880}, {.font = comic(14.25)}, "Pupils"};
    Image   DeletePre {*this, {    195, 6705,  2715,  780}, art::kDeletePressed};
    Image   DeleteDe  {*this, {    195, 6705,  2685,  735}, art::kDelete, "Delete"};
    Image   ClosePre  {*this, {   3825, 6690,  2745,  765}, art::kCloseListPressed};
    Image   CloseDe   {*this, {   3825, 6690,  2685,  750}, art::kCloseList, "Close"};
    // clang-format on

    void load() override;  ///< without a list to remove from it goes again

    [[nodiscard]] Control* way_out() override { return &CloseDe; }

private:
    PictureButton delete_{DeleteDe, DeletePre, [this] { delete_pupil(); }};
    PictureButton close_{CloseDe, ClosePre, [this] { close(); }};

    void list(const std::vector<std::string>& pupils);
    [[nodiscard]] Result<std::vector<std::string>> read_pupils();
    void delete_pupil();
    void close();
};

}  // namespace marrowfen
