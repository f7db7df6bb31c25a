// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyses/scan_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

TEST(ScanFile, ALevelIsStoredWithoutTheFirstCharacterOfItsText) {
    ScanFile file;
    file.add(67);
    file.add(0);
    file.add(-3);
    file.add(100);
    EXPECT_EQ(file.bytes(), "67\r\n0\r\n3\r\n100\r\n");
}

TEST(ScanFile, ReadsAsManyLinesAsThereAreOddChannels) {
    for (const int count : {0, 1, 102, 103, 104, 100000}) {
        std::string bytes;
        for (int i = 0; i < count; ++i) bytes += std::to_string(i % 90) + "\r\n";
        const auto lines = ScanFile::lines(bytes);
        EXPECT_THAT(lines, SizeIs(static_cast<std::size_t>(std::min(count, 103)))) << count;
        if (count > 1) {
            EXPECT_EQ(lines[1], "1");
        }
    }
}

TEST(ScanFile, KeepsTextThatIsNoNumber) {
    EXPECT_THAT(ScanFile::lines("abc\r\n\r\n 12\nx"), ElementsAre("abc", "", " 12", "x"));
}

TEST(ScanFile, ReadsAnEmptyFileAsNoChannels) {
    EXPECT_THAT(ScanFile::lines(""), IsEmpty());
}

TEST(ScanFile, SaysThatItsFileIsMissing) {
    const TempFolder scratch;
    const Files files(scratch.path());
    const auto lines = ScanFile::read(files);
    ASSERT_FALSE(lines);
    EXPECT_EQ(lines.fault().sentence, "File not found: scan.dat");
}

TEST(ScanFile, WritesAnEmptyRunAsAnEmptyFile) {
    const TempFolder scratch;
    const Files files(scratch.path());
    EXPECT_FALSE(ScanFile{}.write(files));
    EXPECT_EQ(*files.read("scan.dat"), "");
}

}  // namespace
}  // namespace hmonitor::test
