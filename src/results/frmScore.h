#pragma once

#include "core/artwork.h"
#include "core/program_form.h"
#include "platform/forms/picture_button.h"

namespace marrowfen {

/// Time and points of a game that was won or a typing test. Its one button keeps the result and goes on.
class frmScore final : public ReadingForm, public Keeper {
public:
    static constexpr FormId kId = FormId::frmScore;
    explicit frmScore(Program& program);

    // clang-format off
    //                           left   top  width height
    Label   Label4    {*this, {    90,  105,  6480,  900}, "Your Time:", comic(27.75), kRed, Align::Centre};
    Label   Label1    {*this, {   225, 1485,  6285,  510}, "Time Taken:", comic(20.25), kRed, Align::Centre};
    TextBox txtTime   {*this, {  2130, 2085,  2490,  390}, TextBox::Mode::ReadOnly, {.font = comic(9.75)}};
    Label   Label2    {*this, {   210, 2820,  6360,  510}, "Points:", comic(20.25), kRed, Align::Centre};
    TextBox txtpoints {*this, {  2130, 3420,  2490,  390}, TextBox::Mode::ReadOnly, {.font = comic(9.75)}};
    Image   HallPr    {*this, {  1995, 4470,  2745,  660}, art::kHallPressed};
    Image   HallDe    {*this, {  1995, 4470,  2730,  675}, art::kHall, "Hall of fame"};
    // clang-format on

    void load() override;
    [[nodiscard]] bool keep_before_the_end() override;

private:
    PictureButton hall_{HallDe, HallPr, [this] { keep_result(); }};

    bool asked_to_end_ = false;

    [[nodiscard]] std::optional<StoreFailure> read() override;
    [[nodiscard]] std::optional<StoreFailure> save() const;
    void keep_result();
};

}  // namespace marrowfen
