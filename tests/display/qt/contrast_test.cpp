// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "display/qt/painting/palette.h"
#include "program/look.h"

namespace display::qt {
namespace {

namespace look = hmonitor::look;

constexpr Colour kFrequency{0x2f2fff};
constexpr Colour kRedScale{0x4040ff};
constexpr Colour kEmptyPreset{0xeab274};
constexpr Colour kUnlitGood{0x1b6013};

struct Words {
    const char* what;
    QColor colour;
    QColor lightest;  ///< of the background below the words
};

void expectLegible(const Words& words) {
    EXPECT_GE(contrastOf(words.colour, words.lightest), kLegible) << words.what;
}

TEST(Contrast, IsTheRatioOfTheTwoLuminances) {
    EXPECT_NEAR(contrastOf(Qt::black, Qt::white), 21, 1e-9);
    EXPECT_NEAR(contrastOf(QColor(0x77, 0x77, 0x77), Qt::white), 4.478, 0.001);
    EXPECT_NEAR(contrastOf(Qt::red, Qt::red), 1, 1e-9);
}

TEST(Contrast, CaptionsOnTheFaceplateAreLegible) {
    expectLegible({"captions", qColour(look::kCaptionColour), QColor(kFaceplateTop)});
    expectLegible({"names of keys and fields", qColour(look::kScaleColour), QColor(kFaceplateTop)});
    expectLegible({"words of dialogs", QColor(kText), QColor(kFaceplateTop)});
    expectLegible({"notices", qColour(look::kNoticeColour), QColor(kFaceplateTop)});
    EXPECT_EQ(qColour(look::kNoticeColour).rgb(), kAmber);
}

TEST(Contrast, WordsAndFiguresInTheWellsAreLegible) {
    expectLegible({"scales", qColour(look::kScaleColour), QColor(kWellTop)});
    expectLegible({"scales above 100 percent", qColour(kRedScale), QColor(kWellTop)});
    expectLegible({"red captions", qColour(look::kSeriesRed), QColor(kWellTop)});
    expectLegible({"blue captions", qColour(look::kSeriesBlue), QColor(kWellTop)});
    expectLegible({"units", qColour(look::kUnitColour), QColor(kWellTop)});
    expectLegible({"frequency", qColour(kFrequency), QColor(kWellTop)});
    for (const Colour colour : {kCyan, kGreen, kRed, kWhite}) {
        expectLegible({"figures and lamps", qColour(colour), QColor(kWellTop)});
    }
}

TEST(Contrast, WordsOnKeysAndPlatesAreLegible) {
    expectLegible({"dark keys", QColor(kKeyText), QColor(kKeyTop)});
    expectLegible({"lit keys", QColor(kLitText), QColor(kLitBottom)});
    expectLegible({"level figures", QColor(Qt::black), QColor(kPlateBottom)});
    expectLegible({"fields", qColour(kCyan), QColor(kField)});
    expectLegible({"fields out of use", QColor(kKeyTextOff), QColor(kField)});
}

TEST(Contrast, AColouredWordOnAKeyIsLightenedUntilItIsLegible) {
    const QColor key(kKeyTop);
    for (const Colour colour : {kRed, kEmptyPreset}) {
        expectLegible({"coloured keys", legibleOn(key, qColour(colour)), key});
    }
    EXPECT_EQ(legibleOn(key, qColour(kCyan)), qColour(kCyan)) << "legible as it is";
    EXPECT_GT(legibleOn(key, qColour(kRed)).red(), legibleOn(key, qColour(kRed)).blue());
}

TEST(Contrast, UnlitLampsAndSegmentsStandOutFromTheirWell) {
    EXPECT_GT(contrastOf(qColour(look::kUnlit), QColor(kWellTop)), 1.1);
    EXPECT_GT(contrastOf(qColour(kUnlitGood), QColor(kWellTop)), 2);
}

}  // namespace
}  // namespace display::qt
