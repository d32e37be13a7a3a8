#pragma once

#include "core/artwork.h"
#include "core/program_form.h"
#include "platform/forms/picture_button.h"

namespace marrowfen {

/// The ten best results of one game and one team.
class frmHalloffame final : public ReadingForm {
public:
    static constexpr FormId kId = FormId::frmHalloffame;
    static constexpr int kRows = 10;
    explicit frmHalloffame(Program& program);

    // clang-format off
    //                             left   top  width height
    Label Label1      {*this, {      45,  -90,  7425,  600}, "Hall of fame...", comic(20.25), kRed};
    Label Label17     {*this, {      45,  600,  9690,  600}, "Hall of fame...", comic(20.25), kBlack};
    Label Label12     {*this, {     135, 1230,   630,  360}, "Rank", comic(14.25), kBlack};
    Label Label13     {*this, {     885, 1230,  1230,  360}, "Name", comic(14.25), kBlack};
    Label Label14     {*this, {    3405, 1230,   705,  360}, "Time", comic(14.25), kBlack};
    Label Label15     {*this, {    5595, 1230,   885,  360}, "Points", comic(14.25), kBlack};
    Label Label16     {*this, {    7710, 1230,   705,  360}, "Date", comic(14.25), kBlack};
    Label Label2      {*this, {     300, 1665,   450,  585}, "1.", comic(20.25), kRed};
    Label Label3      {*this, {     300, 2250,   450,  585}, "2.", comic(20.25), kRed};
    Label Label4      {*this, {     300, 2850,   450,  585}, "3.", comic(20.25), kRed};
    Label Label5      {*this, {     300, 3450,   450,  585}, "4.", comic(20.25), kRed};
    Label Label6      {*this, {     300, 4050,   450,  585}, "5.", comic(20.25), kRed};
    Label Label7      {*this, {     300, 4650,   450,  585}, "6.", comic(20.25), kRed};
    Label Label8      {*this, {     300, 5250,   450,  585}, "7.", comic(20.25), kRed};
    Label Label9      {*this, {     300, 5850,   450,  585}, "8.", comic(20.25), kRed};
    Label Label10     {*this, {     300, 6480,   450,  585}, "9.", comic(20.25), kRed};
    Label Label11     {*this, {     300, 7035,   570,  585}, "10.", comic(20.25), kRed};
    ControlArray<TextBox, 1> Pname;
    ControlArray<TextBox, 1> Ptime;
    ControlArray<TextBox, 1> Points;
    ControlArray<TextBox, 1> TheDate;
    Image PlayAgainPr {*this, {     240, 7635,  2760,  660}, art::kPlayAgainPressed};
    Image PlayAgainDe {*this, {     240, 7635,  2745,  705}, art::kPlayAgain, "Play again"};
    Image Exitpr      {*this, {    3765, 7635,  2745,  675}, art::kExitPressed};
    Image Exitde      {*this, {    3765, 7635,  2715,  660}, art::kExit, "Exit"};
    Image AnotherPr   {*this, {    7170, 7635,  2730,  660}, art::kAnotherPressed};
    Image AnotherDe   {*this, {    7170, 7635,  2730,  660}, art::kAnother, "Another game"};
    // clang-format on

    void for_viewing_only();  ///< without the way back into the game

    [[nodiscard]] Control* way_out() override { return &AnotherDe; }

private:
    PictureButton play_again_{PlayAgainDe, PlayAgainPr, [this] { play_again(); }};
    PictureButton exit_{Exitde, Exitpr, [this] { program_.leave(Exit::FromHalloffame); }};
    PictureButton another_{AnotherDe, AnotherPr, [this] { another_game(); }};

    [[nodiscard]] std::optional<StoreFailure> read() override;
    [[nodiscard]] std::optional<StoreFailure> fill_row(int row, const RowSet& results);
    void play_again();
    void another_game();
};

}  // namespace marrowfen
