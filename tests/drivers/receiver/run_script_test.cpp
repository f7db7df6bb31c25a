// SPDX-License-Identifier: GPL-3.0-or-later
// What ./run does to the settings of a rack before it plays a recording.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "tests/support/temp_folder.h"

namespace {

using testing::HasSubstr;
using testing::Not;

class RunScript : public testing::Test {
 protected:
    // Runs one function of the script in the folder.
    void run(const std::string& call) const {
        const std::string line =
            "cd '" + folder_.path().string() +
            "' && bash -euc \". '" HMONITOR_SOURCE_DIR "/scripts/recording.sh'; " + call + "\"";
        EXPECT_EQ(std::system(line.c_str()), 0) << call;
    }
    std::string ini() const { return folder_.read("hm-16.ini"); }

    const hmonitor::test::TempFolder folder_;
};

TEST_F(RunScript, NamesTheRecordingAndKeepsTheRest) {
    folder_.write("hm-16.ini", "; words\nsource = synthetic\n;file = x\nlevel_step_db = 0.1\n");
    run("set_recording hm-16.ini '/with blanks/a.wav'");
    EXPECT_EQ(ini(),
              "; words\r\nlevel_step_db = 0.1\r\nsource = recording\r\n"
              "file = /with blanks/a.wav\r\n");
}

TEST_F(RunScript, RateAndCentreBehindTheFileAreSet) {
    folder_.write("hm-16.ini", "rate_hz = 1\r\ncentre_mhz=2\r\n");
    run("set_recording hm-16.ini a.cu8 2400000 98.2");
    EXPECT_EQ(ini(),
              ";rate_hz = 1\r\n;centre_mhz=2\r\nsource = recording\r\nfile = a.cu8\r\n"
              "rate_hz = 2400000\r\ncentre_mhz = 98.2\r\n");
    run("set_recording hm-16.ini a.cu8");
    EXPECT_THAT(ini(), HasSubstr("\r\nrate_hz = 2400000\r\ncentre_mhz = 98.2\r\n"));
}

TEST_F(RunScript, WhatHoldsForOneRecordingDoesNotForAnother) {
    folder_.write("hm-16.ini", "file = a.bin\nformat = cu8\nrate_hz = 2400000\ncentre_mhz = 98\n");
    run("set_recording hm-16.ini b.sigmf-meta");
    EXPECT_EQ(ini(),
              ";format = cu8\r\n;rate_hz = 2400000\r\n;centre_mhz = 98\r\n"
              "source = recording\r\nfile = b.sigmf-meta\r\n");
}

TEST_F(RunScript, TheFirstMemoryTakesTheStation) {
    folder_.write("halden.dat", std::string(300, ' '));
    run("set_first_memory . RECORDING 100.1");
    const std::string block = folder_.read("halden.dat");
    EXPECT_EQ(block.size(), 300u);
    EXPECT_EQ(block.substr(16, 16), "-RECORDING-1001 ");
    EXPECT_EQ(block.substr(32), std::string(268, ' '));
}

TEST_F(RunScript, TheStrongestStationStandsInTheMiddleOfWhatItFills) {
    folder_.write("hm16-probe",
                  "#!/bin/sh\necho round,mhz,level\necho 1,98.3,50\necho 1,98.4,89\n"
                  "echo 1,98.5,90\necho 1,98.6,89\necho 1,98.7,40\necho 1,99,89\n");
    run("chmod +x hm16-probe; mkdir Logs; strongest_station . > found");
    EXPECT_EQ(folder_.read("found"), "98.5\n");
    folder_.write("hm16-probe", "#!/bin/sh\necho round,mhz,level\necho 1,98.3,0\n");
    run("strongest_station . > found");
    EXPECT_EQ(folder_.read("found"), "");
    folder_.write("hm16-probe", "#!/bin/sh\nexit 1\n");
    run("! strongest_station . > found");
}

}  // namespace
