// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/number_table.h"

#include <gtest/gtest.h>

namespace display::test {
namespace {

NumberTable levels() {
    NumberTable table;
    table.title = "Band Scanner";
    table.station = "RADIO UNO 98.1 MHz 2026-05-04";
    table.columns = {{"Frequency", "MHz"}, {"Level", "dBuV"}, {"Sweeps", ""}};
    table.rows = {{"87.5", "-3", "12"}, {"102.55", "71.25", ""}};
    return table;
}

TEST(CsvText, HeadsItsColumnsWithNameAndUnitAndTheStationLast) {
    EXPECT_EQ(csvText(levels()),
              "Frequency (MHz),Level (dBuV),Sweeps,RADIO UNO 98.1 MHz 2026-05-04\r\n"
              "87.5,-3,12,\r\n"
              "102.55,71.25,,\r\n");
}

TEST(CsvText, OfATableWithoutRowsIsItsHead) {
    NumberTable table = levels();
    table.rows.clear();
    EXPECT_EQ(csvText(table),
              "Frequency (MHz),Level (dBuV),Sweeps,RADIO UNO 98.1 MHz 2026-05-04\r\n");
}

TEST(CsvText, PutsInQuotesWhatWouldBeReadAsSomethingElse) {
    NumberTable table = levels();
    table.station = "UNO, \"DOS\" 98.1 MHz";
    table.columns = {{"two\nlines", ""}, {" blank", ""}, {"end ", "dB"}};
    table.rows = {{"1\r2", "plain; it's", "\""}};
    EXPECT_EQ(csvText(table),
              "\"two\nlines\",\" blank\",end  (dB),\"UNO, \"\"DOS\"\" 98.1 MHz\"\r\n"
              "\"1\r2\",plain; it's,\"\"\"\",\r\n");
}

TEST(SpotText, SaysTheNumbersOfItsPlaceWithTheirUnits) {
    NumberTable table = levels();
    EXPECT_EQ(spotText(table, {0, 1, 0, 0}), "87.5 MHz: Level -3 dBµV");
    EXPECT_EQ(spotText(table, {1, 2, 0, 0}), "102.55 MHz: Sweeps -") << "an empty cell";
    EXPECT_EQ(spotText(table, {0, 0, 0, 0}), "87.5 MHz: Level -3 dBµV, Sweeps 12") << "of a map";
    table.columns.pop_back();
    EXPECT_EQ(spotText(table, {0, 1, 0, 0}), "87.5 MHz: -3 dBµV") << "nothing else it could be";
    table.columns = {{"Hour", "h"}, {"Phase", "deg"}};
    EXPECT_EQ(spotText(table, {0, 1, 0, 0}), "87.5 h: -3°");
    EXPECT_EQ(spotText({}, {0, 1, 0, 0}), "");
}

TEST(DifferenceText, IsExactInTheDecimalsOfTheTable) {
    NumberTable table = levels();
    table.rows = {{"87.5", "-3", "12"},
                  {"102.55", "71.25", "12"},
                  {"87.55", "-0.05", "x"},
                  {"102.6", "71.3", ""}};
    EXPECT_EQ(differenceText(table, {0, 1, 0, 0}, {1, 1, 0, 0}), "+15.05 MHz: +74.25 dB");
    EXPECT_EQ(differenceText(table, {1, 1, 0, 0}, {0, 1, 0, 0}), "-15.05 MHz: -74.25 dB");
    EXPECT_EQ(differenceText(table, {2, 1, 0, 0}, {0, 1, 0, 0}), "-0.05 MHz: -2.95 dB");
    EXPECT_EQ(differenceText(table, {1, 0, 0, 0}, {3, 0, 0, 0}), "+0.05 MHz: +0.05 dB")
        << "of a map";
    EXPECT_EQ(differenceText(table, {0, 2, 0, 0}, {1, 2, 0, 0}), "+15.05 MHz: 0");
    EXPECT_EQ(differenceText(table, {0, 1, 0, 0}, {1, 2, 0, 0}), "+15.05 MHz")
        << "levels less sweeps are nothing";
    EXPECT_EQ(differenceText(table, {0, 2, 0, 0}, {2, 2, 0, 0}), "+0.05 MHz: -") << "no number";
    EXPECT_EQ(differenceText({}, {0, 1, 0, 0}, {1, 1, 0, 0}), "");
}

TEST(DifferenceText, NumbersThatNoCommonNumberOfPlacesHoldsHaveNone) {
    const NumberTable table{"Levels",
                            "",
                            {{"Frequency", "MHz"}, {"Level", "dB"}},
                            {{"100000000000000", "0.00000000000001"}, {"0.5", "-9999"}}};
    EXPECT_EQ(differenceText(table, {0, 1, 0, 0}, {1, 1, 0, 0}),
              "-99999999999999.5 MHz: -9999.00000000000001 dB");
    EXPECT_EQ(differenceText(
                  {"", "", table.columns, {{"100000000000000", "1"}, {"0.00000000000001", "2"}}},
                  {0, 1, 0, 0}, {1, 1, 0, 0}),
              "-: +1 dB");
}

TEST(FileStem, NamesStationFrequencyDayAndWhatIsShown) {
    EXPECT_EQ(fileStem("RADIO UNO 98.1 MHz 2026-05-04", "Band Scanner"),
              "RADIO UNO 98.1 MHz 2026-05-04 Band Scanner");
    EXPECT_EQ(fileStem("", "Rack"), "Rack");
    EXPECT_EQ(fileStem("98.1 MHz", ""), "98.1 MHz");
}

TEST(FileStem, HoldsNothingThatAFileSystemRefuses) {
    EXPECT_EQ(fileStem("A/B\\C:D*E?F\"G<H>I|J\nK", "x"), "A_B_C_D_E_F_G_H_I_J_K x");
    EXPECT_EQ(fileStem("..hidden", "end. . "), "hidden end");
    EXPECT_EQ(fileStem(" . ", ""), "HMonitor");
    EXPECT_EQ(fileStem("Ñandú", "é"), "Ñandú é") << "letters of every language stay";
}

}  // namespace
}  // namespace display::test
