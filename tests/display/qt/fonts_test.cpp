// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/painting/fonts.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <QPainterPath>
#include <QRawFont>

#include "tests/display/qt/qt_bench.h"

namespace display::qt {

class FontsTest : public QtBench {};

TEST_F(FontsTest, BothWeights_AreTheProportionalFontFromTheFiles) {
    ASSERT_TRUE(Fonts::get().found()) << "the package fonts-b612 is needed";
    for (const auto weight : {Weight::Normal, Weight::Bold}) {
        const QFont font = Fonts::get().font(20, weight);
        const QFontMetricsF metrics(font);
        // The fixed-pitch font of the same family would give one width to all.
        EXPECT_LT(metrics.horizontalAdvance("i") * 1.5, metrics.horizontalAdvance("W"));
        EXPECT_EQ(QFontInfo(font).family(), Fonts::get().family());
        EXPECT_EQ(QRawFont::fromFont(font).weight(),
                  weight == Weight::Bold ? QFont::Bold : QFont::Normal);
    }
}

TEST_F(FontsTest, Glyphs_AreThoseOfTheFile) {
    for (const auto& [weight, file] :
         {std::pair{Weight::Normal, "/usr/share/fonts/opentype/b612/B612-Regular.otf"},
          std::pair{Weight::Bold, "/usr/share/fonts/opentype/b612/B612-Bold.otf"}}) {
        const QRawFont ours = QRawFont::fromFont(Fonts::get().font(64, weight));
        const QRawFont reference(QString(file), ours.pixelSize());
        ASSERT_TRUE(reference.isValid());
        for (const char letter : {'R', '4', 'g'}) {
            const auto glyph = [letter](const QRawFont& font) {
                return font.glyphIndexesForString(QString(QChar(letter))).value(0);
            };
            EXPECT_EQ(ours.pathForGlyph(glyph(ours)).boundingRect(),
                      reference.pathForGlyph(glyph(reference)).boundingRect())
                << letter;
        }
    }
}

TEST_F(FontsTest, Digits_HaveOneWidthSoThatFiguresDoNotJump) {
    for (const auto weight : {Weight::Normal, Weight::Bold}) {
        const QFontMetricsF metrics(Fonts::get().font(25, weight));
        for (char digit = '1'; digit <= '9'; ++digit) {
            EXPECT_DOUBLE_EQ(metrics.horizontalAdvance(QChar(digit)),
                             metrics.horizontalAdvance('0'));
        }
    }
}

}  // namespace display::qt
