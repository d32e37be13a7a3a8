#pragma once

#include <chrono>

#include "core/artwork.h"
#include "core/program_form.h"
#include "platform/forms/picture_button.h"

namespace marrowfen {

/// The stopwatch: its button opens play, it counts the seconds, and it ends a game whose time is up.
class frmTimer final : public ListeningForm {
public:
    static constexpr FormId kId = FormId::frmTimer;
    explicit frmTimer(Program& program);

    // clang-format off
    //                                  left   top  width height
    Image stop1           {*this, {       30,  -15,  1440, 1650}, art::kStopwatchPressed};
    Image stopwatch       {*this, {       30,  -15,  1440, 1650}, art::kStopwatch};
    Dial  dial            {*this, {780, 940}, 490, "Stopwatch"};
    Image Timer_Start_Pre {*this, {      120, 1725,  1350,  555}, art::kStartPressed};
    Image Timer_Start_De  {*this, {      120, 1725,  1365,  555}, art::kStart, "Start"};
    Timer KeyTimer        {*this, std::chrono::seconds{1}, [this] { tick(); }};
    // clang-format on

    Colour FillColor = kRed;  ///< of what is painted on the dial next

    void place() override;  ///< on the board's upper edge, flush with its left one

private:
    PictureButton start_{Timer_Start_De, Timer_Start_Pre, [this] { start(); }};
    float HandAngle;      ///< radians; where the sector begins that is drawn next, always negative
    double HandStep = 0;  ///< radians a tick

    void start();
    void tick();
    void draw_sector();
    void time_is_up();
};

}  // namespace marrowfen
