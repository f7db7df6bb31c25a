// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "analyzer/density.h"
#include "analyzer/density_colors.h"
#include "analyzer/place_text.h"
#include "analyzer/scan_rules.h"
#include "analyzer/session_date.h"
#include "analyzer/session_info.h"
#include "core/numbers.h"
#include "display/headless/headless_desktop.h"
#include "tests/analyzer/table_lines.h"

namespace hmonitor::test {
namespace {

TEST(Density, CountsALevelInItsRowAndWhatLiesBesideTheBandNowhere) {
    Density density;
    density.count(0, 30);
    density.count(800, 100);
    density.count(800, 100);
    density.count(-1, 50);
    density.count(801, 50);
    EXPECT_EQ(density.at(0, 0), 1);
    EXPECT_EQ(density.at(800, 70), 2);
    double all = 0;
    for (const double cell : density.cells()) all += cell;
    EXPECT_EQ(all, 3);
}

TEST(Density, ColumnRunsFastest) {
    Density density;
    density.set(3, 2, 9);
    EXPECT_EQ(density.cells()[3 + 801 * 2], 9);
    EXPECT_EQ(density.cells().size(), 56871u);
}

TEST(Density, ClearingWhatIsShownSparesColumn800AndRow70) {
    Density density;
    for (double& cell : density.cells()) cell = 1;
    density.clearShown();
    for (int row = 0; row < Density::kRows; ++row) {
        for (int x = 0; x < Density::kColumns; ++x)
            ASSERT_EQ(density.at(x, row), x == 800 || row == 70 ? 1 : 0) << x << " " << row;
    }
    density.clear();
    for (const double cell : density.cells()) ASSERT_EQ(cell, 0);
}

TEST(DensityColors, AreThoseOfTheSecondReckoning) {
    const DensityColors colors = buildPalette();
    const auto table = tableLines("colour");
    ASSERT_EQ(table.size(), 1281u);
    for (const auto& line : table) {
        const auto at = static_cast<std::size_t>(std::stoi(line[0]));
        const auto rgb = static_cast<std::uint32_t>(std::stoul(line[1], nullptr, 16));
        const display::Colour colour = colors[at];
        const auto told =
            static_cast<std::uint32_t>(colour.red() << 16 | colour.green() << 8 | colour.blue());
        ASSERT_EQ(told, rgb) << at;
    }
}

TEST(ScanLevel, IsTheWholePartDownwardsHeldWithin30And100) {
    for (const auto& line : tableLines("level")) {
        const auto raw = static_cast<float>(valueOf(line[0]));
        const auto correction = static_cast<float>(valueOf(line[1]) / 10);
        EXPECT_EQ(scanLevel(raw, correction), std::stoi(line[2])) << line[0] << " " << line[1];
    }
    EXPECT_EQ(scanLevel(29.9f, 0), 30);
    EXPECT_EQ(scanLevel(30, 0), 30);
    EXPECT_EQ(scanLevel(100, 0), 100);
    EXPECT_EQ(scanLevel(100.1f, 0), 100);
}

TEST(ScanRange, TakesItsLimitsInTheirOrder) {
    for (const auto& line : tableLines("limit")) {
        const ScanRange range = ScanRange::limited(static_cast<float>(valueOf(line[0])),
                                                   static_cast<float>(valueOf(line[1])));
        SCOPED_TRACE(line[0] + " " + line[1]);
        EXPECT_EQ(range.startMHz, static_cast<float>(valueOf(line[2])));
        EXPECT_EQ(range.stopMHz, static_cast<float>(valueOf(line[3])));
        EXPECT_EQ(range.first(), std::stoi(line[4]));
        EXPECT_EQ(range.last(), std::stoi(line[5]));
    }
}

TEST(ScanRange, OfAWholeBandHas801Points) {
    const ScanRange range = ScanRange::limited(88, 108);
    EXPECT_EQ(range.first(), 0);
    EXPECT_EQ(range.last(), 800);
    EXPECT_TRUE(range.measures());
}

TEST(ScanRange, ThatIsNoNumberOrBeginsAboveTheBandOrEndsBeforeItsStartMeasuresNothing) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    EXPECT_FALSE(ScanRange::limited(nan, 108).measures());
    EXPECT_FALSE(ScanRange::limited(88, nan).measures());
    EXPECT_FALSE(ScanRange::limited(108.5f, 108).measures());
    EXPECT_FALSE(ScanRange::limited(107, 89).measures());
    EXPECT_FALSE(ScanRange::limited(std::numeric_limits<float>::infinity(), 108).measures());
    EXPECT_TRUE(ScanRange::limited(88, 88.5f).measures());
}

TEST(ScanFrequency, OfEveryIndexIsThatOfTheSecondReckoning) {
    const auto table = tableLines("point");
    ASSERT_EQ(table.size(), 821u);
    for (const auto& line : table) {
        const int index = std::stoi(line[0]);
        ASSERT_EQ(scanFrequency(index), static_cast<float>(valueOf(line[1]))) << index;
        ASSERT_EQ(scanIndex(scanFrequency(index) / 10), index);
    }
}

TEST(SweepText, HoldsTheLastIndexTheStepTheStartAndTheLevels) {
    SweepText text;
    text.add(99);
    text.begin();
    text.add(30);
    text.add(100);
    EXPECT_EQ(text.bytes({88, 108}), "800\r\n 25\r\n87.975\r\n30\r\n100\r\n\r\n");
    EXPECT_EQ(text.bytes({87.5f, 89}), "40\r\n 25\r\n87.475\r\n30\r\n100\r\n\r\n");
}

TEST(Places, OnBothHalvesOfTheGlobe_AreThoseOfTheSecondReckoning) {
    const auto table = tableLines("place");
    ASSERT_GE(table.size(), 80u);
    for (const auto& line : table) {
        const double place = valueOf(line[0]);
        const PlaceParts parts = PlaceParts::of(place);
        const double told = (parts.degrees * 60 + parts.minutes) * 60 + parts.seconds;
        const double wanted = (valueOf(line[1]) * 60 + valueOf(line[2])) * 60 + valueOf(line[3]);
        EXPECT_NEAR(told, wanted, 0.005) << line[0];
        EXPECT_LT(parts.seconds, 60) << line[0];
    }
}

TEST(Places, GoThroughTheEditorAndBack) {
    constexpr double kHalfATenth = 0.05 / 3600;
    for (const auto& line : tableLines("place")) {
        const double place = valueOf(line[0]);
        EXPECT_NEAR(PlaceFields::of(place).place(), place, kHalfATenth) << line[0];
    }
}

TEST(Places, AreToldWithTheirSide) {
    EXPECT_EQ(latitudeText(-34.60833333333333, "none"), "34°  36' 30.0''  S ");
    EXPECT_EQ(latitudeText(34.60833333333333, "none"), "34°  36' 30.0''  N ");
    EXPECT_EQ(longitudeText(-58.3725, "none"), "58°  22' 21.0''  W ");
    EXPECT_EQ(longitudeText(58.3725, "none"), "58°  22' 21.0''  E ");
    EXPECT_EQ(latitudeText(0, "none"), "0°  0' 00.0''  S ");
    EXPECT_EQ(longitudeText(0, "none"), "0°  0' 00.0''  W ");
    EXPECT_EQ(latitudeText(-777, "none"), "none");
    EXPECT_EQ(longitudeText(-777, "none"), "none");
    EXPECT_EQ(latitudeText(12.99999, "none"), "12°  59' 60.0''  N ") << "there is no carry";
}

TEST(Places, OfAnySizeAreTold) {
    EXPECT_EQ(latitudeText(1e300, "none"), shortText(1e300).str() + "°  0' 00.0''  N ");
}

TEST(Places, AHeightIsInWholeMetres) {
    EXPECT_EQ(altitudeText(25, "none"), "25 mts");
    EXPECT_EQ(altitudeText(-0.4f, "none"), "0 mts");
    EXPECT_EQ(altitudeText(8848.86f, "none"), "8849 mts");
    EXPECT_EQ(altitudeText(-777, "none"), "none");
}

TEST(PlaceFields, NeverGiveANegative0) {
    PlaceFields fields;
    fields.side = Hemisphere::SouthOrWest;
    EXPECT_FALSE(std::signbit(fields.place()));
    fields.seconds = "36.0";
    EXPECT_EQ(fields.place(), -0.01);
    fields.degrees = "-5";
    EXPECT_EQ(fields.place(), -4.99);
    fields.side = Hemisphere::NorthOrEast;
    EXPECT_EQ(fields.place(), -4.99);
}

TEST(SessionDate, IsTheSecondReckonings_ThereAndBack) {
    for (const auto& line : tableLines("date")) {
        const std::string& text = line[0];
        const auto part = [&](std::size_t from, std::size_t size) {
            return std::stoi(text.substr(from, size));
        };
        const display::Date date{part(0, 4),  part(5, 2),  part(8, 2), 0,
                                 part(11, 2), part(14, 2), part(17, 2)};
        const double serial = serialDate(date);
        EXPECT_NEAR(serial, std::stod(line[1]), 1e-9) << text;
        const display::Date back = dateOfSerial(serial);
        EXPECT_EQ(back.year, date.year) << text;
        EXPECT_EQ(back.month, date.month) << text;
        EXPECT_EQ(back.day, date.day) << text;
        EXPECT_EQ(back.hour, date.hour) << text;
        EXPECT_EQ(back.minute, date.minute) << text;
        EXPECT_EQ(back.second, date.second) << text;
    }
}

TEST(SessionDate, BeforeItsOriginRunsTheHoursOnAsTheyAre) {
    const display::Date date{1899, 12, 29, 0, 6, 0, 0};
    EXPECT_EQ(serialDate(date), -1.25);
    EXPECT_EQ(dateOfSerial(-1.25).hour, 6);
    EXPECT_EQ(dateOfSerial(-1.25).day, 29);
}

TEST(SessionDate, OfAnySizeIsADate) {
    EXPECT_EQ(dateOfSerial(1e300).year, 9999);
    EXPECT_EQ(dateOfSerial(-1e300).year, 100);
}

TEST(SessionDate, IsToldInTheUsersMonths) {
    display::HeadlessDesktop english;
    EXPECT_EQ(createdText(english, 46347.770833333336), "21/Nov/2026 - 18:30 Hs");
    display::HeadlessDesktop spanish(0x0c0a);
    EXPECT_EQ(createdText(spanish, 46026), "04/ene/2026 - 00:00 Hs");
}

}  // namespace
}  // namespace hmonitor::test
