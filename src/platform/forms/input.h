#pragma once

#include <cstdint>

namespace marrowfen {

/// The keys that some form asks for by name; every other key is `Other` and matters only for its character.
enum class Key : std::uint8_t { Other, D, Enter };

struct KeyEvent {
    Key key = Key::Other;
    bool alt = false;
};

/// One character from the keyboard. A handler that sets `code` to 0 swallows it: no later handler and no
/// control sees it.
struct KeyPress {
    char32_t code = 0;
    [[nodiscard]] bool swallowed() const { return code == 0; }
    void swallow() { code = 0; }
};

enum class DragState : std::uint8_t { Enter, Leave, Over };

}  // namespace marrowfen
