// SPDX-License-Identifier: GPL-3.0-or-later
// The list beside the band chart, tuning by a click on a bar, the view of the whole band, and the
// previous run as a shadow behind the new one.
#include <gmock/gmock.h>

#include "tests/analyses/scanner_bench.h"

namespace hmonitor::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ScannerStations : public ScannerBench {
 protected:
    const std::vector<std::string>& rows() { return scanner.Stations.list.rows(); }
    /// The row of the table in which a channel stands.
    std::size_t rowOf(const char* mhz) {
        const display::NumberTable table = scanner.numbersShown();
        for (std::size_t i = 0; i < table.rows.size(); ++i)
            if (table.rows[i][0] == mhz) return i;
        ADD_FAILURE() << mhz << " was not measured";
        return 0;
    }
    void pick(const char* mhz) {
        bench.hand.pick(scanner.Graph1, rowOf(mhz));
        bench.desktop.settle();
    }
    /// The odd channels are chosen from the start, and choosing the current choice again measures
    /// nothing.
    void measureOdd() {
        choose(ScanSpacing::Even);
        choose(ScanSpacing::Odd);
    }
    void select(int row) {
        bench.hand.select(scanner.Stations, row);
        bench.desktop.settle();
    }
    std::string tuned() { return bench.formB.Label_FrecRadio.caption.get(); }
    std::string name() { return bench.formB.Label_RadioName.caption.get(); }
};

TEST_F(ScannerStations, AreListedByFrequencyWithLevelAndPreset) {
    open(1.8f);
    click(scanner.Command3D1);
    frames(11);
    ASSERT_EQ(rows().size(), 103u);
    EXPECT_EQ(rows().front(), " 87.5    " + std::to_string(levelAt(8750)) + "  DIECISEIS");
    EXPECT_EQ(rows()[53], " 98.1    " + std::to_string(levelAt(9810)) + "  RADIO UNO");
    EXPECT_TRUE(scanner.KeyByFrequency.lit);
    EXPECT_FALSE(scanner.KeyByLevel.lit);
}

TEST_F(ScannerStations, WithoutTheFileOfThePresetsHaveNoNames) {
    std::filesystem::remove(bench.files.folder() / "halden.dat");
    open(1.8f);
    ASSERT_FALSE(bench.desktop.ended());
    click(scanner.Command3D1);
    frames(11);
    ASSERT_EQ(rows().size(), 103u);
    EXPECT_EQ(rows()[53], " 98.1    " + std::to_string(levelAt(9810)));
}

TEST_F(ScannerStations, AreSortedByEitherColumnAndTheChosenOneStaysChosen) {
    open(1.8f);
    bench.driver.spectrum[1025.f] = 99;
    choose(ScanSpacing::All);
    EXPECT_EQ(scanner.Stations.list.text().substr(0, 5), " 98.1") << "what the rack is tuned to";
    click(scanner.KeyByLevel);
    EXPECT_THAT(rows().front(), HasSubstr("102.5    99"));
    EXPECT_TRUE(scanner.KeyByLevel.lit);
    EXPECT_EQ(scanner.Stations.list.text().substr(0, 5), " 98.1");
    click(scanner.KeyByFrequency);
    EXPECT_THAT(rows().front(), HasSubstr(" 87.0"));
}

TEST_F(ScannerStations, WithoutTheirChannelsAreNotListedAndTheWindowSaysSo) {
    bench.write("scan.dat", lines({"44", "50"}));
    open(1.8f);
    EXPECT_THAT(rows(), IsEmpty());
    EXPECT_EQ(scanner.ListNote.caption,
              "The stored run does not tell\nits channels: measure again.");
    EXPECT_TRUE(scanner.ListNote.visible);
    EXPECT_FALSE(scanner.KeyTune.enabled);
    measureOdd();
    EXPECT_FALSE(scanner.ListNote.visible);
}

TEST_F(ScannerStations, ABarThatIsPickedTunesItsChannelAndTheRackStaysOnIt) {
    open(1.8f);
    measureOdd();
    bench.takeCalls();
    pick("101.3");
    EXPECT_THAT(bench.takeCalls(), ElementsAre("HM_Parar", "HM_Normal(1013, 0, 0, 0, 0)"));
    EXPECT_EQ(tuned(), "101.30");
    EXPECT_EQ(name(), "") << "off memory";
    EXPECT_TRUE(rackDisabled()) << "the window still stands";
    click(scanner.CommandClose);
    EXPECT_THAT(bench.takeCalls(), IsEmpty());
    EXPECT_TRUE(rackEnabled());
    EXPECT_EQ(tuned(), "101.30");
}

TEST_F(ScannerStations, AHalfStepIsTunedAsOne) {
    open(1.8f);
    choose(ScanSpacing::Quarter);
    bench.takeCalls();
    pick("87.75");
    EXPECT_THAT(bench.takeCalls(), ElementsAre("HM_Parar", "HM_Normal(877.5, 0, 0, 0, 0)"));
    // The bar's position does not change; only the half step goes.
    choose(ScanSpacing::All);
    bench.takeCalls();
    pick("87.7");
    EXPECT_THAT(bench.takeCalls(), ElementsAre("HM_Parar", "HM_Normal(877, 0, 0, 0, 0)"));
}

TEST_F(ScannerStations, AChannelOfAPresetTunesThePresetWithItsNameAndNumber) {
    open(1.8f);
    measureOdd();
    pick("101.3");
    EXPECT_EQ(bench.formB.MemoryState, "cero");
    bench.takeCalls();
    pick("98.1");
    EXPECT_THAT(bench.takeCalls(), ElementsAre("HM_Parar", "HM_Normal(981, 0, 0, 0, 0)"));
    EXPECT_EQ(name(), "RADIO UNO");
    EXPECT_EQ(bench.formB.MemoryNumber, 1);
    EXPECT_EQ(bench.formB.Label_MemoryNumber.caption, "1");
    pick("87.5");
    EXPECT_EQ(bench.formB.MemoryNumber, 16);
    EXPECT_EQ(bench.state.MemoryNumber, "16");
}

TEST_F(ScannerStations, AChannelBeyondTheTuningBarTunesNothing) {
    open(1.8f);
    choose(ScanSpacing::All);
    bench.takeCalls();
    pick("87.4");
    EXPECT_THAT(bench.takeCalls(), IsEmpty());
    EXPECT_EQ(bench.desktop.beeps, 1);
    EXPECT_FALSE(scanner.KeyTune.enabled);
    EXPECT_EQ(tuned(), "98.10");
}

TEST_F(ScannerStations, ARowThatIsSelectedPointsAtItsBarAndADoubleClickTunesIt) {
    open(1.8f);
    click(scanner.Command3D1);
    frames(11);
    bench.hand.set(scanner.HScroll1, 0);
    bench.desktop.settle();
    bench.takeCalls();
    select(99);
    EXPECT_EQ(scanner.Graph1.chosen.get(), (display::Chart::Cell{21, 2}));
    EXPECT_EQ(scanner.HScroll1.value, 11) << "the bar has come into view";
    EXPECT_THAT(bench.takeCalls(), IsEmpty());
    bench.hand.doubleClick(scanner.Stations);
    bench.desktop.settle();
    EXPECT_THAT(bench.takeCalls(), ElementsAre("HM_Parar", "HM_Normal(1073, 0, 0, 0, 0)"));
    select(0);
    EXPECT_EQ(scanner.HScroll1.value, 0);
    click(scanner.KeyTune);
    EXPECT_EQ(tuned(), "87.50");
}

TEST_F(ScannerStations, ABarThatIsPickedInASweepIsTunedWhenTheRunGivesTheUnitBack) {
    open(1.8f);
    measureOdd();
    click(scanner.Command3D1);
    frames(3);
    bench.takeCalls();
    pick("87.7");
    EXPECT_THAT(bench.takeCalls(), IsEmpty()) << "the run has the unit";
    EXPECT_EQ(tuned(), "98.10");
    frames(8);
    EXPECT_EQ(bench.takeCalls().back(), "HM_Normal(877, 0, 0, 0, 0)");
    EXPECT_EQ(tuned(), "87.70");
    click(scanner.CommandClose);
    EXPECT_EQ(tuned(), "87.70");
}

TEST_F(ScannerStations, OfARunThatWasClosedTheWantedOneIsTunedAtTheEnd) {
    open(1.8f);
    click(scanner.Command3D1);
    frames(3);
    pick("88.3");
    click(scanner.Command3D1);
    bench.takeCalls();
    click(scanner.CommandClose);
    EXPECT_THAT(bench.takeCalls(), ElementsAre("HM_Parar", "HM_Normal(883, 0, 0, 0, 0)"));
    EXPECT_TRUE(rackEnabled());
}

TEST_F(ScannerStations, AfterAStoppedRunABarThatIsPickedGivesTheUnitBackAtOnce) {
    open(1.8f);
    click(scanner.Command3D1);
    frames(3);
    click(scanner.Command3D1);
    bench.takeCalls();
    pick("88.3");
    EXPECT_THAT(bench.takeCalls(), ElementsAre("HM_Parar", "HM_Normal(883, 0, 0, 0, 0)"));
    click(scanner.CommandClose);
    EXPECT_THAT(bench.takeCalls(), IsEmpty()) << "it was given back already";
}

TEST_F(ScannerStations, WhileARunHoldsTheThreadNoBarIsTuned) {
    open(1.5f);
    measureOdd();
    run([&](float) { bench.hand.pick(scanner.Graph1, 0); });
    EXPECT_EQ(tuned(), "98.10");
}

TEST_F(ScannerStations, TheWholeBandIsShownByAKeyAndTheLargerViewComesBack) {
    open(1.8f);
    bench.hand.set(scanner.HScroll1, 4);
    bench.desktop.settle();
    const float width = scanner.Graph1.width;
    click(scanner.KeyWhole);
    EXPECT_EQ(scanner.Graph1.left, 0);
    EXPECT_EQ(scanner.Graph1.width, scanner.ChartView.width);
    EXPECT_FALSE(scanner.HScroll1.enabled);
    EXPECT_TRUE(scanner.KeyWhole.lit);
    const display::Place first = scanner.Graph1.placeOf(1, 30);
    const display::Place last = scanner.Graph1.placeOf(21, 100);
    EXPECT_GT(first.x, 0);
    EXPECT_LT(last.x, scanner.ChartView.width);
    click(scanner.KeyWhole);
    EXPECT_EQ(scanner.Graph1.left, -920 * 4 - 280);
    EXPECT_EQ(scanner.Graph1.width, width);
    EXPECT_TRUE(scanner.HScroll1.enabled);
    EXPECT_FALSE(scanner.KeyWhole.lit);
}

TEST_F(ScannerStations, ARunThatMovesTheChartLeavesTheWholeBandInView) {
    open(1.8f);
    click(scanner.KeyWhole);
    click(scanner.Command3D1);
    frames(11);
    EXPECT_EQ(scanner.HScroll1.value, 6);
    EXPECT_EQ(scanner.Graph1.left, 0);
}

TEST_F(ScannerStations, TheLastRunStandsBehindTheNewOneByItsChannels) {
    open(1.8f);
    click(scanner.Command3D1);
    frames(11);
    EXPECT_FALSE(scanner.EarlierWords.visible) << "there was none before";
    bench.driver.spectrum[875.f] = 55;
    // A sweep of all channels puts each channel into another cell.
    choose(ScanSpacing::All);
    click(scanner.Command3D1);
    EXPECT_TRUE(scanner.EarlierWords.visible);
    EXPECT_TRUE(scanner.EarlierStroke.visible);
    EXPECT_EQ(scanner.Graph1.earlierAt(1, 3), levelAt(8750)) << "87.5 MHz";
    EXPECT_EQ(scanner.Graph1.earlierAt(1, 4), std::nullopt) << "87.6 MHz was not measured";
    EXPECT_EQ(scanner.Graph1.earlierAt(1, 5), levelAt(8770)) << "87.7 MHz";
    frames(11);
    EXPECT_EQ(scanner.Graph1.dataAt(1, 3), "55");
    EXPECT_EQ(scanner.Graph1.earlierAt(1, 3), levelAt(8750));
    click(scanner.Command3D1);
    EXPECT_EQ(scanner.Graph1.earlierAt(1, 3), 55) << "now that one is the last";
    EXPECT_EQ(page.Graph1.earlierAt(1, 3), std::nullopt) << "paper shows one run";
}

TEST_F(ScannerStations, AStoredRunWhoseChannelsAreKnownIsTheLastOne) {
    bench.write("scan.dat", lines(std::vector<std::string>(103, "44")));
    open(1.5f);
    run();
    EXPECT_EQ(scanner.Graph1.earlierAt(1, 3), 44);
}

TEST_F(ScannerStations, AStoppedRunAndAChoiceOfChannelsAreNoLastRun) {
    open(1.8f);
    click(scanner.Command3D1);
    frames(11);
    bench.driver.spectrum[875.f] = 55;
    click(scanner.Command3D1);
    frames(3);
    click(scanner.Command3D1);
    measureOdd();
    EXPECT_EQ(scanner.Graph1.earlierAt(1, 3), std::nullopt) << "a choice stands alone";
    EXPECT_FALSE(scanner.EarlierWords.visible);
    click(scanner.Command3D1);
    EXPECT_EQ(scanner.Graph1.earlierAt(1, 3), levelAt(8750));
}

}  // namespace
}  // namespace hmonitor::test
