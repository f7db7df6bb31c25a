// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/painting/fonts.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QScreen>
#include <QtEndian>
#include <algorithm>
#include <cstdio>
#include <utility>

namespace display::qt {

namespace {

/// Some systems register the fixed-pitch B612 under the family and style of this font and then
/// choose that one. So the font is loaded under a family name of our own: the name records of the
/// loaded bytes are replaced by a name of the same length.
constexpr char16_t kFiledAs[] = u"B612";
constexpr char16_t kOurs[] = u"HM61";
constexpr char16_t kOursFixed[] = u"HM6F";

QByteArray utf16(const char16_t* text) {
    QByteArray bytes;
    for (; *text; ++text) {
        bytes.append(static_cast<char>(*text >> 8));
        bytes.append(static_cast<char>(*text & 0xff));
    }
    return bytes;
}

/// The position and the length of the name table in an OpenType file, or none.
std::pair<qsizetype, qsizetype> nameTable(const QByteArray& file) {
    if (file.size() < 12) return {0, 0};
    const char* data = file.constData();
    const int tables = qFromBigEndian<quint16>(data + 4);
    for (int i = 0; i < tables && 12 + (i + 1) * 16 <= file.size(); ++i) {
        const char* record = data + 12 + i * 16;
        if (QByteArray(record, 4) != "name") continue;
        const qsizetype start = qFromBigEndian<quint32>(record + 8);
        const qsizetype length = qFromBigEndian<quint32>(record + 12);
        if (start + length > file.size()) return {0, 0};
        return {start, length};
    }
    return {0, 0};
}

QByteArray renamed(QByteArray file, const char16_t* ours) {
    const auto [start, length] = nameTable(file);
    if (length == 0) return {};
    QByteArray names = file.mid(start, length);
    names.replace(utf16(kFiledAs), utf16(ours));
    names.replace("B612", QString::fromUtf16(ours).toLatin1());
    return file.replace(start, length, names);
}

QStringList folders() {
    QStringList all = {QCoreApplication::applicationDirPath() + "/fonts",
                       "/usr/share/fonts/opentype/b612", "/usr/share/fonts/b612",
                       "/usr/share/fonts/truetype/b612", "/usr/local/share/fonts/b612"};
    return all;
}

/// The family under which the font file was loaded, or empty.
QString takeIn(const QString& name, const char16_t* ours) {
    for (const QString& folder : folders()) {
        for (const char* ending : {".otf", ".ttf"}) {
            QFile file(folder + "/" + name + ending);
            if (!file.open(QIODevice::ReadOnly)) continue;
            const int id = QFontDatabase::addApplicationFontFromData(renamed(file.readAll(), ours));
            const QStringList families = QFontDatabase::applicationFontFamilies(id);
            if (!families.isEmpty()) return families.first();
        }
    }
    return {};
}

}  // namespace

Fonts::Fonts() {
    const QString regular = takeIn("B612-Regular", kOurs);
    const QString bold = takeIn("B612-Bold", kOurs);
    found_ = !regular.isEmpty() && regular == bold;
    family_ = regular;
    fixedFamily_ = takeIn("B612Mono-Regular", kOursFixed);
    if (fixedFamily_.isEmpty())
        fixedFamily_ = QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
    if (!found_) {
        family_ = QFontDatabase::systemFont(QFontDatabase::GeneralFont).family();
        std::fprintf(stderr,
                     "The type face B612 was not found; the panels use \"%s\". "
                     "The package fonts-b612 has it.\n",
                     qPrintable(family_));
    }
}

const Fonts& Fonts::get() {
    static const Fonts fonts;
    return fonts;
}

namespace {

/// From this height on, letters are those of paper, whose pixels are a tenth of the screen's. A
/// point size would depend on the printer's resolution; at this size a whole number of pixels is
/// exact enough.
constexpr qreal kPaperPixels = 48;

QFont ofHeight(const QString& family, qreal pixels) {
    QFont font(family);
    if (pixels >= kPaperPixels) {
        font.setPixelSize(qRound(pixels));
        font.setHintingPreference(QFont::PreferNoHinting);
        return font;
    }
    const QScreen* screen = QGuiApplication::primaryScreen();
    const qreal dpi = screen ? screen->logicalDotsPerInchY() : 96;
    font.setPointSizeF(std::max(pixels, 1.0) * 72 / dpi);
    font.setHintingPreference(QFont::PreferVerticalHinting);
    return font;
}

}  // namespace

QFont Fonts::font(qreal pixels, Weight weight, bool spaced) const {
    QFont font = ofHeight(family_, pixels);
    font.setWeight(weight == Weight::Bold ? QFont::Bold : QFont::Normal);
    if (spaced) font.setLetterSpacing(QFont::PercentageSpacing, 122);
    return font;
}

QFont Fonts::fixedFont(qreal pixels) const {
    QFont font = ofHeight(fixedFamily_, pixels);
    font.setStyleHint(QFont::Monospace);
    return font;
}

}  // namespace display::qt
