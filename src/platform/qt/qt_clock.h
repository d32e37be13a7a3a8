#pragma once

#include "platform/clock.h"

namespace marrowfen {

class QtClock final : public Clock {
public:
    [[nodiscard]] std::chrono::year_month_day today() const override;
    [[nodiscard]] std::chrono::seconds time_of_day() const override;
    [[nodiscard]] std::string short_date(std::chrono::year_month_day date) const override;
};

}  // namespace marrowfen
