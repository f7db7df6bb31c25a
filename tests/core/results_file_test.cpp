// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/results_file.h"

#include <gtest/gtest.h>

#include "tests/support/temp_folder.h"

namespace hmonitor {
namespace {

std::string linesFrom(int first, int last) {
    std::string text;
    for (int n = first; n <= last; ++n) text += std::to_string(n) + "\r\n";
    return text;
}

struct ResultsFileTest : testing::Test {
    test::TempFolder temp;
    Files files{temp.path()};

    StationState floorsAt(double frequency) {
        StationState state;
        ResultsFile::read(files, frequency).putFloors(state);
        return state;
    }
};

TEST_F(ResultsFileTest, LinesEighteenToTwentyTwoAreTheFloors) {
    temp.write("0985.dat",
               linesFrom(1, 17) + " -68.5\r\n-70\r\n45.9\r\n-0.5\r\n0.29\r\n23\r\n24\r\n");
    const StationState state = floorsAt(985);
    EXPECT_EQ(state.FloorNoiseL, " -68.5");
    EXPECT_EQ(state.FloorNoiseR, "-70");
    EXPECT_EQ(state.FloorSepL, "45");
    EXPECT_EQ(state.FloorSepR, "-1");
    EXPECT_EQ(state.FloorThd, "29");
}

TEST_F(ResultsFileTest, NoFileMeansNoFloors) {
    const StationState state = floorsAt(985);
    EXPECT_EQ(state.FloorNoiseL, "xx");
    EXPECT_EQ(state.FloorNoiseR, "xx");
    EXPECT_EQ(state.FloorSepL, "0");
    EXPECT_EQ(state.FloorSepR, "0");
    EXPECT_EQ(state.FloorThd, "0");
    EXPECT_FALSE(ResultsFile::read(files, 985).isThere());
}

TEST_F(ResultsFileTest, TheNameHasAZeroUnderAThousandAndThePointOfAHalfStep) {
    temp.write("0999.5.dat", linesFrom(1, 17) + "a\r\n");
    temp.write("1000.dat", linesFrom(1, 17) + "b\r\n");
    temp.write("1025.5.DAT", linesFrom(1, 17) + "c\r\n");
    EXPECT_EQ(floorsAt(999.5).FloorNoiseL, "a");
    EXPECT_EQ(floorsAt(1000).FloorNoiseL, "b");
    EXPECT_EQ(floorsAt(1025.5).FloorNoiseL, "c");
}

TEST_F(ResultsFileTest, AShortFileCountsAsMissingLineByLine) {
    temp.write("1025.dat", linesFrom(1, 17) + "-68\r\n-70\r\n45\r\n");
    const StationState state = floorsAt(1025);
    EXPECT_EQ(state.FloorNoiseL, "-68");
    EXPECT_EQ(state.FloorNoiseR, "-70");
    EXPECT_EQ(state.FloorSepL, "45");
    EXPECT_EQ(state.FloorSepR, "0");
    EXPECT_EQ(state.FloorThd, "0");
}

TEST_F(ResultsFileTest, CutAtEveryLengthHasTheLinesThatAreThere) {
    const std::string whole = linesFrom(1, 24);
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        temp.write("1025.dat", whole.substr(0, length));
        const ResultsFile results = ResultsFile::read(files, 1025);
        const std::string cut = whole.substr(0, length);
        const auto feeds = std::count(cut.begin(), cut.end(), '\n');
        const bool hasTail = !cut.empty() && cut.back() != '\n';
        for (int n = 1; n <= 24; ++n) {
            EXPECT_EQ(results.line(n).has_value(), n <= feeds + hasTail) << length << ' ' << n;
        }
    }
}

TEST_F(ResultsFileTest, HasTwentyFourLinesAndNoOthers) {
    temp.write("1025.dat", linesFrom(1, 30));
    const ResultsFile results = ResultsFile::read(files, 1025);
    EXPECT_EQ(results.line(24), "24");
    EXPECT_FALSE(results.line(25));
    EXPECT_FALSE(results.line(0));
    EXPECT_FALSE(results.line(-1));
}

TEST_F(ResultsFileTest, WhatCannotBeReadCountsAsMissing) {
    std::filesystem::create_directory(temp.path() / "0985.dat");
    EXPECT_EQ(floorsAt(985).FloorNoiseL, "xx");
}

}  // namespace
}  // namespace hmonitor
