// SPDX-License-Identifier: GPL-3.0-or-later
// The tool tip of the scanner's close key while it stops the run instead of closing.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/analyses/scanner_bench.h"

namespace hmonitor::test {
namespace {

using testing::HasSubstr;

class CloseKeyTips : public ScannerBench {
 protected:
    std::string english() const { return scanner.CommandClose.tip.english; }
    std::string spanish() const { return scanner.CommandClose.tip.spanish; }
    void expectClose() {
        EXPECT_EQ(english(), "Closes the window");
        EXPECT_EQ(spanish(), "Cierra la ventana");
    }
};

TEST_F(CloseKeyTips, WaitSaysThatItStopsARunThatIsMeasuredOneByOne) {
    open(1.5f);
    expectClose();
    int looked = 0;
    run([&](float) {
        if (++looked > 1) return;
        EXPECT_EQ(scanner.CommandClose.caption, "Wait");
        EXPECT_THAT(english(), HasSubstr("Stops the run"));
        EXPECT_THAT(spanish(), HasSubstr("Detiene la corrida"));
    });
    EXPECT_GT(looked, 1);
    EXPECT_EQ(scanner.CommandClose.caption, "Ok");
    expectClose();
}

TEST_F(CloseKeyTips, WaitOfASweepNamesTheKeyThatStopsIt) {
    open(1.8f);
    click(scanner.Command3D1);
    EXPECT_EQ(scanner.CommandClose.caption, "Wait");
    EXPECT_THAT(english(), HasSubstr("\"Stop\" stops the sweep"));
    EXPECT_THAT(spanish(), HasSubstr("\"Stop\" detiene el barrido"));
    click(scanner.Command3D1);
    expectClose();
}

}  // namespace
}  // namespace hmonitor::test
