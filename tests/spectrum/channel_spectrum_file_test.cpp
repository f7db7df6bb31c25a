// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum/channel_spectrum_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/files.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

ChannelSpectrum sample() {
    ChannelSpectrum spectrum{3, "25", 97.675, {}};
    for (const char* value : {"48", "0", "7"}) spectrum.values.emplace_back(value);
    return spectrum;
}

TEST(ChannelSpectrumName, IsTheFrequencyWithANoughtBelow1000) {
    EXPECT_EQ(ChannelSpectrum::fileName(875), "0875.spc");
    EXPECT_EQ(ChannelSpectrum::fileName(979), "0979.spc");
    EXPECT_EQ(ChannelSpectrum::fileName(1015), "1015.spc");
    EXPECT_EQ(ChannelSpectrum::fileName(1025.5), "1025.5.spc");
    EXPECT_EQ(ChannelSpectrum::fileName(875.5), "0875.5.spc");
}

TEST(ChannelSpectrumText, IsCountStepStartAValueALineAndAnEmptyLine) {
    EXPECT_EQ(sample().text(), "3\r\n25\r\n97.675\r\n48\r\n0\r\n7\r\n\r\n");
}

TEST(ChannelSpectrumText, IsReadBack) {
    const ChannelSpectrum read = ChannelSpectrum::parse(sample().text());
    EXPECT_EQ(read.points, 3);
    EXPECT_EQ(read.stepKhz(), 25);
    EXPECT_EQ(read.beforeFirstMhz, 97.675);
    EXPECT_THAT(read.values, ElementsAre("48", "0", "7"));
    EXPECT_EQ(read.value(1), 48);
    EXPECT_EQ(read.value(3), 7);
}

TEST(ChannelSpectrumText, CutAnywhereGivesTheLinesThatAreThere) {
    const std::string whole = sample().text();
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const ChannelSpectrum read = ChannelSpectrum::parse(whole.substr(0, length));
        EXPECT_EQ(read.points, length == 0 ? 0 : 3) << length;
        EXPECT_LE(read.values.size(), 3u) << length;
        const std::size_t valuesAt = whole.find("48");
        EXPECT_EQ(read.values.empty(), length <= valuesAt) << length;
    }
}

struct Count {
    const char* line;
    int points;
};

void PrintTo(const Count& count, std::ostream* out) {
    *out << '"' << count.line << '"';
}

class Counts : public testing::TestWithParam<Count> {};

TEST_P(Counts, GiveNoMoreValuesThanStandThere) {
    const std::string text =
        std::string(GetParam().line) + "\r\n25\r\n97.675\r\n" + "1\r\n2\r\n3\r\n\r\n";
    const ChannelSpectrum read = ChannelSpectrum::parse(text);
    EXPECT_EQ(read.points, GetParam().points);
    EXPECT_THAT(read.values, SizeIs(std::min(3, GetParam().points)));
}

INSTANTIATE_TEST_SUITE_P(Odd, Counts,
                         testing::Values(Count{"0", 0}, Count{"-1", 0}, Count{"1", 1},
                                         Count{"26", 26}, Count{"99", 99}, Count{"801", 801},
                                         Count{"40000", 2001}, Count{"abc", 0}, Count{"", 0},
                                         Count{" 17", 17}, Count{"99999999999999999999", 2001}));

TEST(ChannelSpectrumText, ValuesBeyondTheRangeStayAtItsEnd) {
    const ChannelSpectrum read =
        ChannelSpectrum::parse("5\r\n99999\r\n1\r\n40000\r\n-40000\r\nabc\r\n12.5\r\n 7\r\n\r\n");
    EXPECT_EQ(read.stepKhz(), 32767);
    EXPECT_EQ(read.value(1), 32767);
    EXPECT_EQ(read.value(2), -32768);
    EXPECT_EQ(read.value(3), 0);
    EXPECT_EQ(read.value(4), 12);
    EXPECT_EQ(read.value(5), 7);
}

TEST(ChannelSpectrumText, WhatFollowsTheValuesIsNotRead) {
    std::string text = sample().text() + "9\r\n8\r\n";
    text.append(1 << 20, 'x');
    EXPECT_THAT(ChannelSpectrum::parse(text).values, ElementsAre("48", "0", "7"));
}

TEST(ChannelSpectrumText, TheEmptyLineEndsASpectrumThatPromisesMore) {
    EXPECT_THAT(ChannelSpectrum::parse("26\r\n25\r\n97.675\r\n48\r\n\r\n").values,
                ElementsAre("48"));
}

TEST(ChannelSpectrumText, LineFeedsAloneDivideLinesToo) {
    EXPECT_THAT(ChannelSpectrum::parse("2\n25\n97.675\n48\n9\n").values, ElementsAre("48", "9"));
}

TEST(ChannelSpectrumFile, ReplacesTheOldFileWhole) {
    TempFolder folder;
    const Files files(folder.path());
    ASSERT_FALSE(files.rewrite("0979.spc", "an older and much longer text that must be gone"));
    ASSERT_FALSE(sample().write(files, 979));
    EXPECT_EQ(*files.read("0979.spc"), sample().text());
}

TEST(ChannelSpectrumFile, MissingOneIsToldFromAnEmptyOne) {
    TempFolder folder;
    const Files files(folder.path());
    const auto missing = ChannelSpectrum::read(files, 979);
    ASSERT_FALSE(missing);
    EXPECT_EQ(missing.fault().kind, FileFaultKind::Missing);
    ASSERT_FALSE(files.rewrite("0979.spc", ""));
    const auto empty = ChannelSpectrum::read(files, 979);
    ASSERT_TRUE(empty);
    EXPECT_EQ(empty->points, 0);
    EXPECT_THAT(empty->values, IsEmpty());
}

}  // namespace
}  // namespace hmonitor::test
