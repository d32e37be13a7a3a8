#include "pupils/frmErrmsg.h"

namespace marrowfen {

frmErrmsg::frmErrmsg(Program& program)
    : ProgramForm(program,
                  {.size = {10170, 4440}, .level = Level::Message, .border = Border::Thin, .spoken = "Message"}) {}

}  // namespace marrowfen
