// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyses/response_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "analyses/response_curve.h"
#include "core/text_lines.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using testing::ElementsAre;

const char* const kStored =
    "-30\r\n-12\r\n-5\r\n0\r\n0\r\n1\r\n15\r\n-151\r\n"
    "15000\r\n12000\r\n8000\r\n4000\r\n1000\r\n400\r\n125\r\n30\r\n";

TEST(ResponseFile, IsNamedByTheKeyOfItsFrequency) {
    EXPECT_EQ(ResponseFile(875).name(), "0875.res");
    EXPECT_EQ(ResponseFile(875.5).name(), "0875.5.res");
    EXPECT_EQ(ResponseFile(999.5).name(), "0999.5.res");
    EXPECT_EQ(ResponseFile(1000).name(), "1000.res");
    EXPECT_EQ(ResponseFile(1025.5).name(), "1025.5.res");
}

TEST(ResponseFile, HasTheLevelsAndThenTheFrequencies) {
    const ResponsePairs pairs = ResponseFile::parse(kStored);
    EXPECT_THAT(pairs.level, ElementsAre(-30, -12, -5, 0, 0, 1, 15, -151));
    EXPECT_THAT(pairs.frequency, ElementsAre(15000, 12000, 8000, 4000, 1000, 400, 125, 30));
    EXPECT_EQ(ResponseFile::compose(pairs), kStored);
}

TEST(ResponseFile, CutAtAnyLineItKeepsThePairsThatAreWhole) {
    const std::string whole = kStored;
    std::size_t end = 0;
    for (int lines = 0; lines <= 16; ++lines) {
        const ResponsePairs pairs = ResponseFile::parse(whole.substr(0, end));
        EXPECT_EQ(ResponseCurve::resultsIn(pairs), std::max(0, lines - 8)) << lines;
        if (lines < 16) end = whole.find('\n', end) + 1;
    }
}

TEST(ResponseFile, CutAnywhereItGivesNoMoreThanTheWholeFileHas) {
    const std::string whole = kStored;
    for (std::size_t end = 0; end <= whole.size(); ++end) {
        const auto rows = ResponseCurve::of(ResponseFile::parse(whole.substr(0, end))).rows();
        EXPECT_LE(rows.size(), 8u);
    }
}

TEST(ResponseFile, TextThatIsNoNumberCountsAsZero) {
    const ResponsePairs pairs = ResponseFile::parse("abc\r\n 7\r\n\r\n1e9\r\n99999999999\r\n");
    EXPECT_THAT(pairs.level, ElementsAre(0, 7, 0, 1, 2147483647, 0, 0, 0));
}

TEST(ResponseFile, AMissingFileGivesNothing) {
    const TempFolder scratch;
    EXPECT_FALSE(ResponseFile(981).read(Files(scratch.path())));
}

TEST(ResponseFile, ReadsBackWhatItWrote) {
    const TempFolder scratch;
    const Files files(scratch.path());
    const ResponsePairs pairs = ResponseFile::parse(kStored);
    EXPECT_FALSE(ResponseFile(1025.5).write(files, pairs));
    EXPECT_EQ(*files.read("1025.5.res"), kStored);
    const auto back = ResponseFile(1025.5).read(files);
    ASSERT_TRUE(back);
    EXPECT_EQ(back->level, pairs.level);
    EXPECT_EQ(back->frequency, pairs.frequency);
}

}  // namespace
}  // namespace hmonitor::test
