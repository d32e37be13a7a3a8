#pragma once

#include "core/artwork.h"
#include "core/program_form.h"
#include "core/teams.h"
#include "platform/forms/picture_button.h"

namespace marrowfen {

/// Asks for the team colour, which is the time limit: to play a game, or to view its hall of fame.
class frmSettings final : public ProgramForm {
public:
    static constexpr FormId kId = FormId::frmSettings;
    explicit frmSettings(Program& program);

    // clang-format off
    //                           left   top  width height
    Image Image1   {*this, {     1590, 1035,  1320, 1350}, art::kRedTeam, "Red team, 1 minute"};
    Image Image3   {*this, {     3525, 1035,  1350, 1350}, art::kYellowTeam, "Yellow team, 2 minutes"};
    Image Image4   {*this, {     5520, 1035,  1320, 1350}, art::kGreenTeam, "Green team, 3 minutes"};
    Image Image2   {*this, {     7470, 1035,  1320, 1350}, art::kBlueTeam, "Blue team, 4 minutes"};
    Shape Shape1   {*this, {     4845,  930,   375, 1545}, {.fill = kYellow, .outline = kYellow}};
    Image redPr    {*this, {     1845, 2580,   810,  540}, art::kRedButtonPressed};
    Image redDe    {*this, {     1845, 2580,   810,  555}, art::kRedButton, "Red team"};
    Image YellowPr {*this, {     3780, 2580,   840,  510}, art::kYellowButtonPressed};
    Image YellowDe {*this, {     3780, 2580,   825,  540}, art::kYellowButton, "Yellow team"};
    Image GreenPr  {*this, {     5760, 2580,   840,  525}, art::kGreenButtonPressed};
    Image GreenDe  {*this, {     5760, 2580,   840,  570}, art::kGreenButton, "Green team"};
    Image BluePr   {*this, {     7800, 2580,   795,  540}, art::kBlueButtonPressed};
    Image BlueDe   {*this, {     7800, 2580,   825,  495}, art::kBlueButton, "Blue team"};
    Label lblIT    {*this, {      570, 3540,  9540, 2985}, "click your mouse on your team colour.", comic(24), kRed,
                    Align::Centre};
    // clang-format on

    void load() override { program_.state.TimeElapsed = 0; }

private:
    PictureButton red_{redDe, redPr, [this] { join(kRedTeam); }};
    PictureButton yellow_{YellowDe, YellowPr, [this] { join(kYellowTeam); }};
    PictureButton green_{GreenDe, GreenPr, [this] { join(kGreenTeam); }};
    PictureButton blue_{BlueDe, BluePr, [this] { join(kBlueTeam); }};

    void join(const Team& team);
};

}  // namespace marrowfen
