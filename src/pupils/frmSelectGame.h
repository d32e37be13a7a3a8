#pragma once

#include "core/artwork.h"
#include "core/program_form.h"
#include "platform/forms/picture_button.h"

namespace marrowfen {

/// The first screen: a pupil finds their own name in the list and clicks it. Alt+D leads a teacher to the removal of
/// pupils; no screen tells of it.
class frmSelectGame final : public ReadingForm {
public:
    static constexpr FormId kId = FormId::frmSelectGame;
    static constexpr Colour kPanel{10841914};
    explicit frmSelectGame(Program& program);

    // clang-format off
    //                              left   top  width height
    Image    Image1      {*this, {  2040,  660,  7680, 3480}, art::kTitle, "Marrowfen"};
    Shape    Shape1      {*this, {   885, 4290,  9735, 3135}, {.fill = kPanel, .corner = 400}};
    Label    Label11     {*this, {  1365, 4605,  8790,  810}, "Please select your name", comic(26.25), kWhite,
                          Align::Centre};
    ComboBox cmbPupils   {*this, {  2595, 5775,  3765,  555}, {.font = comic(15.75), .fore = kRed, .back = kWhite},
                          "Your name"};
    Image    NewPLay_Pre {*this, {  6405, 5775,  2700,  615}, art::kNewPlayerPressed};
    Image    NewPlay_De  {*this, {  6405, 5775,  2775,  630}, art::kNewPlayer, "New player"};
    Image    Exitpr      {*this, {  6390, 6480,  2715,  660}, art::kExitPressed};
    Image    Exitde      {*this, {  6390, 6480,  2745,  660}, art::kExit, "Exit"};
    Label    Label1      {*this, {  4215, 7725,  2760,  795}, "Marrowfen\nLearn letters by playing", comic(12), kBlue,
                          Align::Centre};
    // clang-format on

    void load() override {}
    /// The list is built anew at every return, so that pupils who came or went meanwhile show up.
    void activated() override { read_again(); }
    void key_down(const KeyEvent& event) override;
    /// Settles who plays from the name in the box. Without such a pupil a message says so. When the store can't tell,
    /// nobody is settled.
    [[nodiscard]] std::optional<StoreFailure> RunGame();
    [[nodiscard]] Control* way_out() override { return &Exitde; }

private:
    PictureButton new_player_{NewPlay_De, NewPLay_Pre, [this] { new_player(); }};
    PictureButton exit_{Exitde, Exitpr, [this] { program_.leave(Exit::FromSelectGame); }};

    [[nodiscard]] std::optional<StoreFailure> read() override;
    void pupil_chosen();
    void new_player();
};

}  // namespace marrowfen
