#pragma once

#include <functional>
#include <string>

#include "platform/forms/form.h"

namespace marrowfen {

/// Letters on the screen for who has no keyboard: as on a keyboard, and large enough for a finger. They lie below the
/// form whose text box they write into, or at the foot of the screen where there is no room, and leave that form the
/// active one. The first letter of a name is written as a capital; one key gives the last letter its accents in turn.
class Letters final : public Form {
public:
    Letters(Desktop& desktop, TextBox& box);

    [[nodiscard]] const TextBox& box() const { return box_; }
    void show_case();  ///< capitals or small letters, as the next one will be written
    void place() override;

private:
    void add(std::string_view character, Point at, Twips width);
    [[nodiscard]] bool begins_a_name() const;
    void write(std::string_view character);
    void change_last(const std::function<std::string(const std::string&)>& change);

    TextBox& box_;
    ControlArray<Label, 0> keys_;
};

}  // namespace marrowfen
