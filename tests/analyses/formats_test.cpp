// SPDX-License-Identifier: GPL-3.0-or-later
// What docs/formats.md says of the analyses' files is what their readers do.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "analyses/response_curve.h"
#include "analyses/response_file.h"
#include "analyses/scan_file.h"
#include "core/text_lines.h"
#include "tests/core/formats_page.h"

namespace hmonitor::test {
namespace {

using testing::ElementsAre;

TEST(AnalysesFormats, TheScansExampleIsWhatTheScannerStores) {
    ScanFile file;
    for (const int level : {67, 41, -3, 100}) file.add(level);
    EXPECT_EQ(file.bytes(), joinLines(FormatsPage().example("scan.dat")));
}

TEST(AnalysesFormats, TheScansTableIsWhatTheReaderDoes) {
    const auto rows = FormatsPage().rows("scan.dat");
    ASSERT_EQ(rows.size(), 3u);
    for (const auto& row : rows)
        EXPECT_EQ(std::to_string(ScanFile::lines(unescaped(row[0])).size()), row[1]) << row[0];
}

TEST(AnalysesFormats, TheResponsesExampleReadsAsThePageSays) {
    const std::string bytes = joinLines(FormatsPage().example("0875.res"));
    const ResponsePairs pairs = ResponseFile::parse(bytes);
    EXPECT_THAT(pairs.level, ElementsAre(0, -30, 12, 0, 0, 0, 0, 0));
    EXPECT_THAT(pairs.frequency, ElementsAre(1000, 30, 15000, 0, 0, 0, 0, 0));
    EXPECT_EQ(ResponseFile::compose(pairs), bytes);
    EXPECT_EQ(ResponseFile(875).name(), "0875.res");
}

TEST(AnalysesFormats, TheResponsesTableIsWhatTheReaderDoes) {
    const auto rows = FormatsPage().rows("Frequency response of a station");
    ASSERT_EQ(rows.size(), 3u);
    for (const auto& row : rows) {
        const auto curve = ResponseCurve::of(ResponseFile::parse(unescaped(row[0])));
        EXPECT_EQ(std::to_string(curve.rows().size()), row[1]) << row[0];
    }
}

}  // namespace
}  // namespace hmonitor::test
