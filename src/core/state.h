#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/store.h"

namespace marrowfen {

/// What all forms share; one set for the whole run. Only what the store keeps outlives it.
struct State {
    using Whole = std::int16_t;

    std::unique_ptr<Store> GameDb;   ///< open from the start-up on
    std::unique_ptr<RowSet> GameRs;  ///< the one shared row set: on the game's row of Templates during a game

    Whole PupilID = 0;      ///< 0: nobody
    Whole TemplateID = 0;   ///< the game
    Whole TimeElapsed = 0;  ///< seconds of the current game
    Whole TimeLimit = 0;    ///< seconds; it stands for the team, and 0 for a typing test
    bool SoundOn = false;
    bool PhonicsOn = false;
    bool HallViewOnly = false;  ///< the team is chosen to view its hall of fame
    bool GameRunning = false;   ///< from the stopwatch's start until the next board
    /// The last right answer has been given, though its cue may still have the word: a tick that falls into that moment
    /// comes too late.
    bool GameWon = false;
    std::string AppShortPath;

    // The board.
    Whole KeysDone = 0;                      ///< filled keys; 36 end a tile game
    Whole PanelsDone = 0;                    ///< letters dealt to tiles; at 36 none is left
    Whole PanelCount = 0;                    ///< highest tile index in use
    Whole KeyScan = 0;                       ///< index of whatever search is going on
    std::string DragType;                    ///< picture folder of the tiles
    std::array<std::string, 37> KeyLetters;  ///< from 1; an entry is empty once its letter is dealt
    std::vector<Whole> RightHandKeys;

    // The word games.
    std::string ContentTable;
    std::string TargetText;  ///< the word to spell
    std::string TypedText;   ///< accepted letters, in capitals; in rhymes the letter tried last and the ending
    Whole TypedLength = 0;
    Whole TargetPos = 0;   ///< sentences finished
    Whole WordCursor = 0;  ///< index of the rhyme group on show, or cards finished
    Whole RhymesLeft = 0;
    Whole FoundCount = 0;  ///< highest entry in use in WordsFound
    Whole CardIndex = 0;
    std::array<Whole, 9> UsedRowIds{};  ///< rhyme groups in playing order, or sentences played
    std::array<std::string, 51> WordsFound;
    std::array<std::string, 27> CardWords;  ///< from 1; an entry is empty once its card is drawn
};

}  // namespace marrowfen
