// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/windows/desktop_language.h"

#include <QMap>
#include <QRegularExpression>

namespace display::qt {

QString localeOfUser() {
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const QByteArray value = qgetenv(name);
        if (!value.isEmpty()) return QString::fromLatin1(value);
    }
#ifdef Q_OS_UNIX
    return QStringLiteral("C");
#else
    return QLocale::system().name();
#endif
}

int languageIdFor(const QString& locale) {
    static const QMap<QString, int> primaries = {
        {"ar", 1},  {"bg", 2},  {"ca", 3},  {"zh", 4},  {"cs", 5},  {"da", 6},  {"de", 7},
        {"el", 8},  {"en", 9},  {"es", 10}, {"fi", 11}, {"fr", 12}, {"he", 13}, {"hu", 14},
        {"is", 15}, {"it", 16}, {"ja", 17}, {"ko", 18}, {"nl", 19}, {"nb", 20}, {"no", 20},
        {"pl", 21}, {"pt", 22}, {"ro", 24}, {"ru", 25}, {"hr", 26}, {"sk", 27}, {"sq", 28},
        {"sv", 29}, {"th", 30}, {"tr", 31}, {"uk", 34}, {"sl", 36}, {"et", 37}, {"lv", 38},
        {"lt", 39}, {"vi", 42}, {"eu", 45}, {"gl", 86}};
    const QString language = locale.section(QRegularExpression("[_.@-]"), 0, 0).toLower();
    return primaries.value(language, 9) + 1024;
}

int languageIdOfUser() {
    return languageIdFor(localeOfUser());
}

QLocale wordsFor(const QString& locale) {
    const QString name = locale.section(QRegularExpression("[.@]"), 0, 0);
    const QLocale found(name);
    return found.language() == QLocale::C ? QLocale(QLocale::English) : found;
}

}  // namespace display::qt
