#pragma once

#include "core/artwork.h"
#include "core/program_form.h"
#include "platform/forms/picture_button.h"

namespace marrowfen {

/// The list of games, and the hub of the program.
class frmGames final : public ReadingForm {
public:
    static constexpr FormId kId = FormId::frmGames;
    explicit frmGames(Program& program);

    // clang-format off
    //                           left   top  width height
    Label   Label1   {*this, {     90,   30,  9630,  795}, "Please double click a game from the game list",
                      comic(21.75), kRed, Align::Centre};
    ListBox List1    {*this, {    120,  900,  9450, 5700}, {.font = comic_bold(14.25)}, "Games"};
    Image   Snd_On   {*this, {   3810, 6675,   810,  675}, art::kSoundOn, "Sound"};
    Image   sndOff   {*this, {   3810, 6675,   810,  675}, art::kSoundOff, "Sound"};
    Image   Phon_On  {*this, {   5145, 6675,   810,  675}, art::kPhonicsOn, "Letter sounds"};
    Image   Phon_OFF {*this, {   5145, 6675,   810,  675}, art::kPhonicsOff, "Letter sounds"};
    Image   BackPr   {*this, {     75, 7425,  2730,  675}, art::kBackPressed};
    Image   BackDe   {*this, {     75, 7425,  2745,  660}, art::kBack, "Back"};
    Image   Hall_Pre {*this, {   3525, 7410,  2745,  660}, art::kHallPressed};
    Image   hall_De  {*this, {   3525, 7410,  2730,  675}, art::kHall, "Hall of fame"};
    Image   Exitpr   {*this, {   6840, 7425,  2745,  675}, art::kExitPressed};
    Image   Exitde   {*this, {   6840, 7425,  2715,  660}, art::kExit, "Exit"};
    // clang-format on

    void load() override;
    [[nodiscard]] Control* way_out() override { return &BackDe; }

private:
    PictureSwitch sound_{Snd_On, sndOff, [this](bool on) { switch_sound(on); }};
    PictureSwitch phonics_{Phon_On, Phon_OFF, [this](bool on) { switch_phonics(on); }};
    PictureButton back_{BackDe, BackPr, [this] { back(); }};
    PictureButton hall_{hall_De, Hall_Pre, [this] { view_hall_of_fame(); }};
    PictureButton exit_{Exitde, Exitpr, [this] { program_.leave(Exit::FromGames); }};

    void switch_sound(bool on);
    void switch_phonics(bool on);
    [[nodiscard]] std::optional<StoreFailure> read() override;
    /// Whether a game is selected in the list. When none is, the pupil is told `otherwise`, or the list is read first.
    [[nodiscard]] bool has_chosen(const char* otherwise);
    [[nodiscard]] Result<Value> selected_game();
    void play();
    void view_hall_of_fame();
    void back();
};

}  // namespace marrowfen
