#pragma once

#include <QDate>

#include "platform/register.h"

namespace marrowfen {

/// Its first day: British schools begin in September.
[[nodiscard]] inline QDate school_year_of(QDate day) {
    constexpr int kSeptember = 9;
    return {day.month() >= kSeptember ? day.year() : day.year() - 1, kSeptember, 1};
}

/// The results of all school years before this one.
[[nodiscard]] inline ResultFilter until_last_year() {
    ResultFilter filter;
    filter.to = school_year_of(QDate::currentDate()).addDays(-1).toString(Qt::ISODate).toStdString();
    return filter;
}

}  // namespace marrowfen
