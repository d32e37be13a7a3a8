#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "platform/forms/desktop.h"

namespace marrowfen {

/// Says what has changed on the screen since it was last asked, for whoever can't see it: what stands on a form that
/// has come, a text, a card or a tile that is another one now, and now and then the time. A message is left out: every
/// reader reads it all by itself.
class Announcer {
public:
    struct News {
        std::string said;               ///< empty: there is nothing to announce
        std::vector<Control*> renamed;  ///< those that are called something else now, announced or not
    };
    [[nodiscard]] News news(const Desktop& desktop);

private:
    struct Heard {
        std::string form;
        std::vector<std::string> names;  // by the controls' numbers; empty: nothing is there
    };
    std::unordered_map<const Form*, Heard> heard_;
};

}  // namespace marrowfen
