// SPDX-License-Identifier: GPL-3.0-or-later
// The receiver in software fills a session from a recording that covers a part of the band.
#include <gtest/gtest.h>

#include "all_forms.h"
#include "app/forms.h"
#include "display/headless/headless_desktop.h"
#include "program/loaded_driver.h"
#include "tests/drivers/receiver/playback.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using namespace std::chrono_literals;

TEST(ReceiverSession, HasTheRecordingsLevelsAndTheFloorElsewhere) {
    constexpr int kSweeps = 5;
    // 600 kHz around 98.4 MHz, with a station on 98.5.
    const hm16::receiver::Playback playback("a.sigmf-meta");
    playback.record("a.sigmf-meta");
    TempFolder folder;
    folder.write("hm-16.dat", lines({"1", "0", "0", "1", "0", "0", "0", "0"}));
    folder.write("normal.hm", lines({"100", "0", "0", "0", "1.000", "0", "0", "2", "90"}));
    folder.write("Hm-res.dat", lines({"0", "0", "0"}));
    folder.write("scan.dat", "");
    folder.write("halden.dat", memoryBlock({{1, "RECORDING", "985"}}));
    display::HeadlessDesktop desktop;
    desktop.seedRandom(1);
    LoadedDriver driver(**playback);
    const Files files(folder.path());
    Program program(desktop, driver, files);
    Forms forms(program);
    forms.formWaitLoad.show();
    desktop.advance(100ms);
    ASSERT_TRUE(playback->step(2));

    frmSpectrumAnalizer& form = forms.formSpectrumAnalizer;
    desktop.hand.click(forms.formD.Image6);
    desktop.settle();
    ASSERT_TRUE(form.visible);
    EXPECT_FLOAT_EQ(form.HardwareVersion, 1.8f);
    desktop.hand.click(form.butStart_BW);
    desktop.settle();
    for (int sweep = 0; sweep < kSweeps; ++sweep) {
        ASSERT_TRUE(playback->step(1));
        desktop.advance(500ms);
    }
    desktop.hand.click(form.butPause_BW);
    desktop.settle();
    const Measurement& session = form.measurement;
    EXPECT_EQ(session.SessionInfo.Acquisitions, kSweeps);
    const auto strongest = [&](int column) {
        int level = 0;
        for (int row = 0; row < Density::kRows; ++row) {
            if (session.SpectralDensity.at(column, row) > 0) level = 30 + row;
        }
        return level;
    };
    // The station stands where it is, and beside the recording every sweep saw the floor.
    EXPECT_GT(strongest(scanIndex(98.5f)), 80);
    EXPECT_EQ(session.SpectralDensity.at(scanIndex(95.0f), 0), kSweeps);
    EXPECT_EQ(session.SpectralDensity.at(scanIndex(103.0f), 0), kSweeps);
    SessionInfo stored;
    Density cells;
    const auto bytes = SessionFolder(files).read(session.CurrentSessionFile);
    ASSERT_TRUE(bytes);
    EXPECT_EQ(readSession(*bytes, stored, cells), SessionCondition::Whole);
    EXPECT_EQ(stored.Acquisitions, kSweeps);
}

}  // namespace
}  // namespace hmonitor::test
