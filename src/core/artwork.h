#pragma once

#include "platform/forms/look.h"

/// The drawings that belong to the program, by the names of their sources. A pressed picture is the twin of its
/// released one.
namespace marrowfen::art {

inline const Picture kTitle = Picture::artwork("title");
inline const Picture kBoard = Picture::artwork("board");
inline const Picture kStopwatch = Picture::artwork("stopwatch");
inline const Picture kStopwatchPressed = Picture::artwork("stopwatch-pressed");
inline const Picture kSpaceBar = Picture::artwork("space-bar");
inline const Picture kFullStop = Picture::artwork("full-stop");

inline const Picture kExit = Picture::artwork("exit");
inline const Picture kExitPressed = Picture::artwork("exit-pressed");
inline const Picture kNewPlayer = Picture::artwork("new-player");
inline const Picture kNewPlayerPressed = Picture::artwork("new-player-pressed");
inline const Picture kBack = Picture::artwork("back");
inline const Picture kBackPressed = Picture::artwork("back-pressed");
inline const Picture kNext = Picture::artwork("next");
inline const Picture kNextPressed = Picture::artwork("next-pressed");
inline const Picture kDelete = Picture::artwork("delete");
inline const Picture kDeletePressed = Picture::artwork("delete-pressed");
inline const Picture kCloseList = Picture::artwork("close-list");
inline const Picture kCloseListPressed = Picture::artwork("close-list-pressed");
inline const Picture kClose = Picture::artwork("close");
inline const Picture kClosePressed = Picture::artwork("close-pressed");
inline const Picture kHall = Picture::artwork("hall");
inline const Picture kHallPressed = Picture::artwork("hall-pressed");
inline const Picture kContinue = Picture::artwork("continue");
inline const Picture kContinuePressed = Picture::artwork("continue-pressed");
inline const Picture kStart = Picture::artwork("start");
inline const Picture kStartPressed = Picture::artwork("start-pressed");
inline const Picture kPlayAgain = Picture::artwork("play-again");
inline const Picture kPlayAgainPressed = Picture::artwork("play-again-pressed");
inline const Picture kAnother = Picture::artwork("another");
inline const Picture kAnotherPressed = Picture::artwork("another-pressed");
inline const Picture kSkip = Picture::artwork("skip");
inline const Picture kSkipPressed = Picture::artwork("skip-pressed");

inline const Picture kRedButton = Picture::artwork("red");
inline const Picture kRedButtonPressed = Picture::artwork("red-pressed");
inline const Picture kYellowButton = Picture::artwork("yellow");
inline const Picture kYellowButtonPressed = Picture::artwork("yellow-pressed");
inline const Picture kGreenButton = Picture::artwork("green");
inline const Picture kGreenButtonPressed = Picture::artwork("green-pressed");
inline const Picture kBlueButton = Picture::artwork("blue");
inline const Picture kBlueButtonPressed = Picture::artwork("blue-pressed");
inline const Picture kRedTeam = Picture::artwork("team-red");
inline const Picture kYellowTeam = Picture::artwork("team-yellow");
inline const Picture kGreenTeam = Picture::artwork("team-green");
inline const Picture kBlueTeam = Picture::artwork("team-blue");

inline const Picture kSoundOn = Picture::artwork("sound-on");
inline const Picture kSoundOff = Picture::artwork("sound-off");
inline const Picture kPhonicsOn = Picture::artwork("phonics-on");
inline const Picture kPhonicsOff = Picture::artwork("phonics-off");

}  // namespace marrowfen::art
