#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace marrowfen {

enum class FormId : std::uint8_t {
    frmBackGround,
    frmSelectGame,
    frmNewPupil,
    frmDeletePupils,
    frmGames,
    frmSettings,
    frmErrmsg,
    frmSimpleKeyBoard,
    frmTimer,
    frmWord,
    frmWordsUsed,
    frmPictureCard,
    frmSentence,
    frmTypingTest,
    frmScore,
    frmHalloffame,
    frmTimeUp,
};

constexpr std::size_t kFormCount = 17;

/// In the order of the enumeration.
constexpr std::array<std::string_view, kFormCount> kFormNames{
    "frmBackGround", "frmSelectGame",     "frmNewPupil", "frmDeletePupils", "frmGames",     "frmSettings",
    "frmErrmsg",     "frmSimpleKeyBoard", "frmTimer",    "frmWord",         "frmWordsUsed", "frmPictureCard",
    "frmSentence",   "frmTypingTest",     "frmScore",    "frmHalloffame",   "frmTimeUp"};

}  // namespace marrowfen
