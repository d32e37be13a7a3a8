#pragma once

#include <string>
#include <vector>

#include "platform/forms/announcer.h"

namespace marrowfen {

class FormView;
class Window;

/// What a screen reader and a switch see of the forms: the window, in it the forms from the bottom to the top, in each
/// what it holds in reading order, and last the voice, a notice whose name is what has been announced last. Nothing is
/// made before somebody asks for it.
class AccessibleTree {
public:
    class Voice;
    explicit AccessibleTree(Window& window);
    AccessibleTree(const AccessibleTree&) = delete;
    AccessibleTree& operator=(const AccessibleTree&) = delete;
    ~AccessibleTree();

    [[nodiscard]] static bool has_readers();
    /// Tells of what has come, gone and changed since the last time. `views` from the bottom to the top.
    void catch_up(const Desktop& desktop, const std::vector<FormView*>& views);

private:
    void tell_focus(const Desktop& desktop, const std::vector<FormView*>& views);
    void say(const std::string& news);

    Voice* voice_;  // the window's
    Announcer announcer_;
    const Control* ringed_ = nullptr;  // only compared
};

}  // namespace marrowfen
