#pragma once

#include "core/artwork.h"
#include "core/program_form.h"
#include "platform/forms/picture_button.h"

namespace marrowfen {

/// Told when the stopwatch runs out: the same game again, another one, or the way out.
class frmTimeUp final : public ProgramForm {
public:
    static constexpr FormId kId = FormId::frmTimeUp;
    explicit frmTimeUp(Program& program);

    // clang-format off
    //                             left   top  width height
    Label Label1      {*this, {     570,  225,  7440, 1065}, "Your time is up", comic(20.25), kRed, Align::Centre};
    Image PlayAgainPr {*this, {      75, 1755,  2760,  660}, art::kPlayAgainPressed};
    Image PlayAgainDe {*this, {      75, 1755,  2745,  705}, art::kPlayAgain, "Play again"};
    Image AnotherPr   {*this, {    3150, 1770,  2730,  660}, art::kAnotherPressed};
    Image AnotherDe   {*this, {    3150, 1770,  2730,  660}, art::kAnother, "Another game"};
    Image Exitpr      {*this, {    6135, 1770,  2745,  675}, art::kExitPressed};
    Image Exitde      {*this, {    6165, 1770,  2715,  660}, art::kExit, "Exit"};
    // clang-format on

    [[nodiscard]] Control* way_out() override { return &AnotherDe; }

private:
    PictureButton play_again_{PlayAgainDe, PlayAgainPr, [this] { go_on_to(FormId::frmSettings); }};
    PictureButton another_{AnotherDe, AnotherPr, [this] { go_on_to(FormId::frmGames); }};
    PictureButton exit_{Exitde, Exitpr, [this] { program_.leave(Exit::FromTimeUp); }};

    void go_on_to(FormId next);
};

}  // namespace marrowfen
