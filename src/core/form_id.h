#pragma once

#include <cstddef>
#include <cstdint>

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

}  // namespace marrowfen
