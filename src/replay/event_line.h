#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/form_set.h"
#include "platform/forms/input.h"

namespace marrowfen {

/// One event as a line: how long after the one before, in which yield (0: in none), what. Forms are called by name,
/// what stands on them by name and number.
struct EventLine {
    std::chrono::milliseconds after{};
    std::size_t yield = 0;
    std::string what;
};

[[nodiscard]] std::string to_text(const EventLine& line);
[[nodiscard]] std::optional<EventLine> to_event_line(std::string_view text);  ///< nothing: it is no event

[[nodiscard]] std::string to_text(const InputEvent::What& what, const FormSet& forms);
/// Nothing when it can't be understood, or names a control that is not there.
[[nodiscard]] std::optional<InputEvent::What> to_event(std::string_view text, const FormSet& forms);

}  // namespace marrowfen
