#include "platform/qt/qt_clock.h"

#include <QDate>
#include <QLocale>
#include <QTime>

namespace marrowfen {

std::chrono::year_month_day QtClock::today() const {
    const QDate date = QDate::currentDate();
    return {std::chrono::year(date.year()), std::chrono::month(static_cast<unsigned>(date.month())),
            std::chrono::day(static_cast<unsigned>(date.day()))};
}

std::chrono::seconds QtClock::time_of_day() const {
    return std::chrono::seconds(QTime(0, 0).secsTo(QTime::currentTime()));
}

std::string QtClock::short_date(std::chrono::year_month_day date) const {
    const QDate day(static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
                    static_cast<int>(static_cast<unsigned>(date.day())));
    const QLocale locale;
    const bool says_nothing = locale.language() == QLocale::C;
    return (says_nothing ? day.toString(u"dd/MM/yyyy") : locale.toString(day, QLocale::ShortFormat)).toStdString();
}

}  // namespace marrowfen
