#include "app/all_forms.h"

#include "board/frmSimpleKeyBoard.h"
#include "content/frmPictureCard.h"
#include "content/frmSentence.h"
#include "content/frmWord.h"
#include "content/frmWordsUsed.h"
#include "core/frmBackGround.h"
#include "pupils/frmDeletePupils.h"
#include "pupils/frmErrmsg.h"
#include "pupils/frmGames.h"
#include "pupils/frmNewPupil.h"
#include "pupils/frmSelectGame.h"
#include "pupils/frmSettings.h"
#include "results/frmHalloffame.h"
#include "results/frmScore.h"
#include "results/frmTimeUp.h"
#include "results/frmTimer.h"
#include "typing/frmTypingTest.h"

namespace marrowfen {

namespace {

template <class... Forms>
void define(Program& program) {
    (program.forms.define(Forms::kId, [&program] { return std::make_unique<Forms>(program); }), ...);
}

}  // namespace

void define_all_forms(Program& program) {
    define<frmBackGround, frmSelectGame, frmNewPupil, frmDeletePupils, frmGames, frmSettings, frmErrmsg,
           frmSimpleKeyBoard, frmTimer, frmWord, frmWordsUsed, frmPictureCard, frmSentence, frmTypingTest, frmScore,
           frmHalloffame, frmTimeUp>(program);
}

}  // namespace marrowfen
