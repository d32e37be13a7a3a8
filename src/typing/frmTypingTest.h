#pragma once

#include <array>
#include <chrono>

#include "core/artwork.h"
#include "core/program_form.h"
#include "platform/forms/picture_button.h"

namespace marrowfen {

/// One fixed sentence, typed against the clock: from the first key of any kind to the last right letter.
class frmTypingTest final : public ProgramForm {
public:
    static constexpr FormId kId = FormId::frmTypingTest;
    explicit frmTypingTest(Program& program);

    // clang-format off
    //                          left   top  width height
    Label Label2    {*this, {     30,   15,  9405,  720}, "Please use your keyboard to type the sentence below.",
                     comic(18), kRed};
    Label Label1    {*this, {     15,  810,  9405,  720}, "The quick brown fox jumps over the lazy dog.",
                     comic(14.25), kRed, Align::Centre};
    Label BuildTest {*this, {     60, 1500,  9405,  720}, "", comic(14.25), kRed, Align::Centre};
    ControlArray<PictureBox, 0> Keys;
    Image Image1    {*this, {   2670, 5190,  4020,  600}, art::kSpaceBar, "Space bar"};
    Image Image2    {*this, {   7320, 4470,   660,  600}, art::kFullStop, "Full stop"};
    PictureBox Picture1 {*this, { 315, 4260,     0,    0}, kYellow};
    Image skip_pre  {*this, {   6840, 5250,  1095,  555}, art::kSkipPressed};
    Image skip_de   {*this, {   6840, 5250,  1095,  540}, art::kSkip, "Skip"};
    Shape PanBorder;
    Timer TestTimer {*this, std::chrono::seconds{1}, [this] { ++TestSeconds; }};
    // clang-format on

    void SetTest();  ///< lays out the letters of the sentence

    void load() override;
    void resized() override { desktop().set_focus(Picture1); }

    [[nodiscard]] Control* way_out() override { return &skip_de; }

private:
    static constexpr std::size_t kLetters = 43;
    PictureButton skip_{skip_de, skip_pre, [this] { skip(); }};
    std::array<std::string, kLetters> TestLetters;
    State::Whole TestPos = 0;      ///< index of the letter that is due; 43: done
    State::Whole TestSeconds = 0;  ///< since the first key

    void type(KeyPress& press);
    void mark_due_key();
    [[nodiscard]] bool is_right(std::string_view pressed) const;
    void finish();
    void skip();
};

}  // namespace marrowfen
