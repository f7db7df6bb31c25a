// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDateTime>
#include <QTimeZone>

#include "display/qt/widgets/control_widget.h"

#include <chrono>
#include <string>

#include "display/qt/windows/desktop_language.h"
#include "display/qt/windows/qt_desktop.h"

namespace display::qt {

namespace {

/// Some languages end short months with a full stop; the date masks of the panels have punctuation
/// of their own.
QString bare(QString word) {
    while (word.endsWith('.')) word.chop(1);
    return word;
}

}  // namespace

Date QtDesktop::today() const {
    const QDateTime at = QDateTime::currentDateTime();
    const QDate day = at.date();
    const QTime time = at.time();
    return {day.year(),  day.month(),   day.day(),    day.dayOfWeek() % 7,
            time.hour(), time.minute(), time.second()};
}

WallTime QtDesktop::wallTime() const {
    const QDateTime at = QDateTime::currentDateTime();
    return {std::chrono::sys_time<std::chrono::milliseconds>(
                std::chrono::milliseconds(at.toMSecsSinceEpoch())),
            std::chrono::seconds(at.offsetFromUtc()), QTimeZone::systemTimeZoneId().toStdString()};
}

std::string QtDesktop::monthName(int month) const {
    return utf8(wordsFor(localeOfUser()).monthName(month + 1, QLocale::LongFormat));
}

std::string QtDesktop::shortMonthName(int month) const {
    return utf8(bare(wordsFor(localeOfUser()).monthName(month + 1, QLocale::ShortFormat)));
}

std::string QtDesktop::weekdayName(int weekday) const {
    // Qt's week starts with Monday as 1.
    const int day = weekday == 0 ? 7 : weekday;
    return utf8(wordsFor(localeOfUser()).dayName(day, QLocale::LongFormat));
}

}  // namespace display::qt
