// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLocale>
#include <QString>

namespace display::qt {

/// The user's locale as LC_ALL, LC_MESSAGES and LANG say in this order ("es_AR.UTF-8"), "C" when
/// none does.
QString localeOfUser();

/// The language identifier of a locale: the primary language in the low ten bits, sublanguage 1
/// above them. English for an unknown locale.
int languageIdFor(const QString& locale);

int languageIdOfUser();
/// The locale for the names of months and weekdays.
QLocale wordsFor(const QString& locale);

}  // namespace display::qt
