// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLocale>
#include <QString>

namespace display::qt {

/// The user's locale as LC_ALL, LC_MESSAGES and LANG say in this order ("es_AR.UTF-8"), "C" when
/// none does.
QString localeOfUser();

/// The language identifier for a locale: primary language in the low ten bits, sublanguage 1
/// above. English for one that is not known.
int languageIdFor(const QString& locale);

int languageIdOfUser();
/// For words of dates.
QLocale wordsFor(const QString& locale);

}  // namespace display::qt
