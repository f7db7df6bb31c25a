// SPDX-License-Identifier: GPL-3.0-or-later
// Readings that are no numbers, and results files that are cut: the rack keeps showing what it last
// knew, and never something that is no number.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "core/numbers.h"
#include "tests/panels/rack/rack_view.h"

namespace hmonitor::test {
namespace {

using std::chrono::milliseconds;

class OddReadings : public testing::Test {
 protected:
    void SetUp() override {
        const float ordinary[] = {80,  -10, -12, 45,   2.5f, 1.5f, 9.5f, -60,
                                  -61, 40,  41,  0.5f, 12,   60,   5,    7};
        for (int i = 1; i <= 16; ++i) bench.output(i) = ordinary[i - 1];
        bench.readings.rdsError = 0.4f;
        bench.readings.rdsLevel = 4.2f;
        bench.start();
        // All timers of the panels are due together every 300 ms.
        bench.advance(milliseconds(12000 + 30));
    }
    void expectNothingMoved(const std::map<std::string, std::string>& before, float said) {
        bench.advance(milliseconds(600));
        EXPECT_EQ(view.all(), before) << said;
        EXPECT_FALSE(bench.desktop.ended());
        EXPECT_TRUE(bench.desktop.boxes.empty());
    }

    RackBench bench;
    RackView view{bench};
};

const float kNoReadings[] = {std::numeric_limits<float>::quiet_NaN(),
                             -std::numeric_limits<float>::quiet_NaN(),
                             std::numeric_limits<float>::infinity(),
                             -std::numeric_limits<float>::infinity(),
                             1e38f,
                             -1e38f,
                             20001.f,
                             -20001.f};

TEST_F(OddReadings, OfOneOutputLeaveTheRackAsItWas) {
    const auto before = view.all();
    for (int output = 1; output <= 16; ++output) {
        const float ordinary = bench.output(output);
        for (const float said : kNoReadings) {
            bench.output(output) = said;
            SCOPED_TRACE(output);
            expectNothingMoved(before, said);
        }
        bench.output(output) = ordinary;
    }
}

TEST_F(OddReadings, OfRdsLeaveTheRackAsItWas) {
    const auto before = view.all();
    for (const float said : kNoReadings) {
        bench.readings.rdsError = said;
        expectNothingMoved(before, said);
        bench.readings.rdsError = 0.4f;
        bench.readings.rdsLevel = said;
        expectNothingMoved(before, said);
        bench.readings.rdsLevel = 4.2f;
    }
}

TEST_F(OddReadings, OfAllOutputsAtOnceLeaveTheRackAsItWas) {
    const auto before = view.all();
    for (const float said : kNoReadings) {
        for (int output = 1; output <= 16; ++output) bench.output(output) = said;
        bench.readings.rdsError = bench.readings.rdsLevel = said;
        expectNothingMoved(before, said);
    }
}

TEST_F(OddReadings, LargestOnesThatPassDrawNothingThatIsNoFigure) {
    for (const float said : {10000.f, -10000.f, 1000.f, -1000.f, 999.9f, -0.f, -0.001f, 1e-38f}) {
        for (int output = 1; output <= 16; ++output) bench.output(output) = said;
        bench.readings.rdsError = bench.readings.rdsLevel = said;
        bench.advance(milliseconds(12000));
        for (const auto& [place, shown] : view.all()) {
            EXPECT_EQ(shown.find('?'), std::string::npos) << place << " " << said << " " << shown;
            EXPECT_EQ(shown.find("nan"), std::string::npos) << place << " " << said;
            EXPECT_NE(shown, "-0.0") << place;
            EXPECT_NE(shown, "-0") << place;
        }
    }
}

class TornResults : public OddReadings {
 protected:
    /// The five floors after tuning 92.5 MHz, and what the limited digits show a tick later.
    std::string floorsOf(const std::string& file) {
        bench.write("0925.dat", file);
        bench.set(bench.formB.HScroll1, 50);
        bench.formB.cambfre();  // needed if the bar is there already
        bench.advance(milliseconds(100));
        return bench.state.FloorNoiseL.str() + "|" + bench.state.FloorNoiseR.str() + "|" +
               bench.state.FloorSepL.str() + "|" + bench.state.FloorSepR.str() + "|" +
               bench.state.FloorThd.str();
    }
    std::string digits() {
        return view.see("noise digits") + " " + view.see("separation digits") + " " +
               view.see("distortion digits");
    }
    /// A file of that many lines, five of them the results.
    static std::string cutBehind(int count, const std::string& end = "\r\n") {
        const char* const results[] = {"-55", "-56", "62.9", "63", "1.25"};
        std::string file;
        for (int i = 1; i <= count; ++i) {
            file += i >= 18 && i <= 22 ? results[i - 18] : "99";
            if (i < count) file += "\r\n";
        }
        return count == 0 ? "" : file + end;
    }
};

TEST_F(TornResults, CountLineByLineAtEveryLength) {
    for (const char* end : {"\r\n", "\n", ""}) {
        for (int count = 0; count <= 24; ++count) {
            const std::string expected =
                std::string(count >= 18 ? "-55" : "xx") + "|" + (count >= 19 ? "-56" : "xx") + "|" +
                (count >= 20 ? "62" : "0") + "|" + (count >= 21 ? "63" : "0") + "|" +
                (count >= 22 ? "125" : "0");
            EXPECT_EQ(floorsOf(cutBehind(count, end)), expected) << count;
            EXPECT_EQ(digits(), std::string(count >= 18 ? "55" : "60") +
                                    (count >= 19 ? "56 " : "61 ") + (count >= 20 ? "62" : "40") +
                                    (count >= 21 ? "63 " : "41 ") + (count >= 22 ? "125" : "050"))
                << count;
        }
    }
}

TEST_F(TornResults, CutAtEveryByteGiveFiguresOnly) {
    const std::string whole = cutBehind(24);
    for (std::size_t length = whole.size() - 40; length < whole.size(); ++length) {
        floorsOf(whole.substr(0, length));
        EXPECT_EQ(digits().find('?'), std::string::npos) << length;
        EXPECT_FALSE(bench.desktop.ended());
    }
}

TEST_F(TornResults, AreNotMeasuredWithoutTheFile) {
    bench.remove("0925.dat");
    bench.set(bench.formB.HScroll1, 50);
    bench.advance(milliseconds(100));
    EXPECT_EQ(bench.state.FloorNoiseL, "xx");
    EXPECT_EQ(bench.state.FloorThd, "0");
    EXPECT_EQ(digits(), "6061 4041 050");
}

/// One text in all five lines, and the result.
TEST_F(TornResults, WithTextOrHugeNumbersCountAsTheNumberThatTheyBeginWith) {
    struct Case {
        std::string text;
        const char* floors;
        const char* digits;
    };
    const std::string huge = "1" + std::string(38, '0');
    const Case cases[] = {
        {"bad", "bad|bad|0|0|0", "0000 4041 050"},
        {"", "||0|0|0", "0000 4041 050"},
        // No exponent: the number is 1.
        {"1e38", "1e38|1e38|1|1|100", "0101 4041 100"},
        {"-1e38", "-1e38|-1e38|-1|-1|-100", "0101 4041 050"},
        {"inf", "inf|inf|0|0|0", "0000 4041 050"},
        {"nan", "nan|nan|0|0|0", "0000 4041 050"},
        {"-", "-|-|0|0|0", "0000 4041 050"},
        {"0x10", "0x10|0x10|0|0|0", "0000 4041 050"},
        {"\t50", "\t50|\t50|0|0|0", "0000 4041 050"},
        {"  50", "  50|  50|50|50|5000", "5050 5050 500"},
        {"-50", "-50|-50|-50|-50|-5000", "5050 4041 050"},
    };
    for (const Case& at : cases) {
        std::string file;
        for (int i = 1; i <= 24; ++i) file += at.text + "\r\n";
        EXPECT_EQ(floorsOf(file), at.floors) << at.text;
        EXPECT_EQ(digits(), at.digits) << at.text;
    }
    // Results of more than two digits: the tens place cannot show them and stays.
    std::string file;
    for (int i = 1; i <= 24; ++i) file += huge + "\r\n";
    floorsOf(file);
    EXPECT_EQ(digits().substr(0, 4), "9999");
    EXPECT_EQ(digits().find('?'), std::string::npos);
    EXPECT_FALSE(bench.desktop.ended());
}

TEST_F(TornResults, OfAnUnreadableKindAreNotMeasured) {
    std::filesystem::create_directory(bench.scratch.path() / "0925.dat");
    bench.set(bench.formB.HScroll1, 50);
    EXPECT_EQ(bench.state.FloorNoiseL, "xx");
    EXPECT_EQ(bench.state.FloorSepR, "0");
    EXPECT_FALSE(bench.desktop.ended());
}

}  // namespace
}  // namespace hmonitor::test
