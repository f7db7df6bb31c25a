// SPDX-License-Identifier: GPL-3.0-or-later
// The head of a window says which station is measured, and when.
#include <gtest/gtest.h>

#include <filesystem>

#include "core/zone_offset.h"
#include "program/station_line.h"
#include "tests/analyses/scanner_bench.h"
#include "tests/spectrum/spectrum_bench.h"

namespace hmonitor::test {

/// Sets the time at which a file was last written, by the clock on the wall.
void datedFile(RackBench& bench, std::string_view name, std::chrono::sys_seconds read) {
    const int ahead = zoneOffset(read.time_since_epoch().count());
    std::filesystem::last_write_time(
        bench.files.folder() / name,
        std::chrono::file_clock::from_sys(read - std::chrono::seconds(ahead)));
}

constexpr std::chrono::sys_seconds kNewYearsEve =
    std::chrono::sys_days(std::chrono::year(2025) / 12 / 31) + std::chrono::hours(23) +
    std::chrono::minutes(5);

TEST(StationHead, IsTheTunedStationAndTheTimeOfItsRun) {
    RackBench bench;
    bench.start();
    EXPECT_EQ(stationHead(bench.program, std::nullopt), "RADIO UNO 98.1 MHz");
    EXPECT_EQ(stationHead(bench.program, display::Date{2026, 5, 4, 1, 7, 3, 59}),
              "RADIO UNO 98.1 MHz · 2026-05-04 07:03");
    bench.set(bench.formB.HScroll1, 130);
    EXPECT_EQ(stationHead(bench.program, std::nullopt), "100.5 MHz") << "off memory";
}

TEST(StationHead, TellsOfAFileWhenItWasWrittenByTheWallClockOfTheUser) {
    RackBench bench;
    bench.start();
    bench.write("0981.res", "0\r\n");
    datedFile(bench, "0981.res", kNewYearsEve);
    const auto utc = writtenAt(bench.program, "0981.res");
    ASSERT_TRUE(utc);
    EXPECT_EQ(stationHead(bench.program, utc), "RADIO UNO 98.1 MHz · 2025-12-31 23:05");
    EXPECT_EQ(utc->weekday, 3) << "a Wednesday";
    EXPECT_EQ(writtenAt(bench.program, "0982.res"), std::nullopt);
}

class HeadOfTheScan : public ScannerBench {};

TEST_F(HeadOfTheScan, IsTheStationThatWasPickedAndTheTimeOfTheShownRun) {
    datedFile(bench, "scan.dat", kNewYearsEve);
    open(1.8f);
    EXPECT_EQ(scanner.Station.caption, "RADIO UNO 98.1 MHz · 2025-12-31 23:05");
    click(scanner.Command3D1);
    frames(11);
    EXPECT_EQ(scanner.Station.caption, "RADIO UNO 98.1 MHz · 2026-05-04 12:00");
    bench.hand.pick(scanner.Graph1, 0);
    bench.desktop.settle();
    EXPECT_EQ(scanner.Station.caption, "DIECISEIS 87.5 MHz · 2026-05-04 12:00");
}

TEST(HeadOfTheChannelSpectrum, IsTheStationOfTheShownOne) {
    SpectrumBench bench;
    bench.write("0979.spc", lines({"3", "50", "97.8", "12", "0", "7", ""}));
    datedFile(bench, "0979.spc", kNewYearsEve);
    bench.shows.unload();
    bench.hand.doubleClick(bench.formD.PictureGraph1);
    bench.settle();
    EXPECT_NE(bench.shows.Station.caption.get().find("97.9 MHz · 2025-12-31 23:05"),
              std::string::npos)
        << bench.shows.Station.caption.get();
    bench.runSpan(0);
    EXPECT_NE(bench.shows.Station.caption.get().find("97.9 MHz · 2026-05-04 12:00"),
              std::string::npos);
}

TEST(HeadOfTheBandwidth, TellsTheTimeFromTheRunOn) {
    SpectrumBench bench;
    bench.openBandwidth();
    EXPECT_EQ(bench.width.Station.caption.get().find(" · "), std::string::npos);
    bench.click(bench.width.Command3D1);
    EXPECT_NE(bench.width.Station.caption.get().find("97.9 MHz · 2026-05-04 12:00"),
              std::string::npos);
}

TEST(HeadOfTheResponse, IsTheStationOfTheShownCurve) {
    RackBench bench;
    bench.write("0981.res", lines({"-30", "-12", "-5", "0", "0", "1", "15", "20", "15000", "12000",
                                   "8000", "4000", "1000", "400", "125", "30"}));
    datedFile(bench, "0981.res", kNewYearsEve);
    bench.start();
    bench.click(bench.formD.Image3);
    EXPECT_EQ(bench.forms.formDd3.Station.caption, "RADIO UNO 98.1 MHz · 2025-12-31 23:05");
    bench.click(bench.forms.formDd3.Command3D2);
    bench.click(bench.formB.SSCommand1);
    bench.click(bench.formD.Image3);
    EXPECT_EQ(bench.forms.formDd3.Station.caption, "R. TRES 102.55 MHz") << "not measured";
}

}  // namespace hmonitor::test
