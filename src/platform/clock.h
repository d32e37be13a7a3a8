#pragma once

#include <chrono>
#include <string>

namespace marrowfen {

/// The computer's clock, in local time.
class Clock {
public:
    virtual ~Clock() = default;
    [[nodiscard]] virtual std::chrono::year_month_day today() const = 0;
    [[nodiscard]] virtual std::chrono::seconds time_of_day() const = 0;  ///< since midnight
    /// A date as this computer's user writes it in short.
    [[nodiscard]] virtual std::string short_date(std::chrono::year_month_day date) const = 0;
};

}  // namespace marrowfen
