#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "core/form_set.h"

namespace marrowfen {

/// Tells in words what has changed on the screen since it last looked.
class ScreenWatch {
public:
    /// A form that has come is told by a checksum of all that it shows, a control that looks otherwise by what it shows
    /// now, the keyboard's ring by the control that it stands round. Paths begin below `program_folder`, which is
    /// another one on every computer.
    [[nodiscard]] std::vector<std::string> changes(const Desktop& desktop, const FormSet& forms,
                                                   const std::string& program_folder);

private:
    struct Seen {
        std::string name;
        std::vector<std::string> controls;  // by their numbers; empty: not to be seen
    };
    std::unordered_map<const Form*, Seen> seen_;
    std::string ring_;  // the line that told of it last
};

}  // namespace marrowfen
