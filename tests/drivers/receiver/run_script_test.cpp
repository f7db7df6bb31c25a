// SPDX-License-Identifier: GPL-3.0-or-later
// What ./run does before it plays a recording or a radio.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <string>

#include "tests/support/temp_folder.h"

namespace {

using testing::HasSubstr;
using testing::Not;

class RunScript : public testing::Test {
 protected:
    // Runs a line with the script's functions in the folder; its output goes into the file "said".
    int tryTo(const std::string& call) const {
        folder_.write("call", "set -eu\n. '" HMONITOR_SOURCE_DIR
                              "/scripts/packages.sh'\n. '" HMONITOR_SOURCE_DIR
                              "/scripts/lay_rack.sh'\n. '" HMONITOR_SOURCE_DIR
                              "/scripts/recording.sh'\n" +
                                  call + "\n");
        const std::string line = "cd '" + folder_.path().string() + "' && bash call 2>said";
        return std::system(line.c_str());
    }
    void run(const std::string& call) const { EXPECT_EQ(tryTo(call), 0) << call << said(); }
    std::string said() const { return folder_.read("said"); }
    std::string ini() const { return folder_.read("hm-16.ini"); }

    const hmonitor::test::TempFolder folder_;
};

TEST_F(RunScript, FormatRateAndCentreStandInAnyOrderAndInUsualWords) {
    run("read_words 98.2 2.4M CU8; echo $format $rate $centre >out");
    EXPECT_EQ(folder_.read("out"), "cu8 2400000 98.2\n");
    run("read_words 1.2e6 98.2M; echo \"$format\" $rate $centre >out");
    EXPECT_EQ(folder_.read("out"), " 1200000 98.2\n");
    run("read_words 2048k 100; echo $rate $centre >out");
    EXPECT_EQ(folder_.read("out"), "2048000 100\n");
    run("read_words 98200000; echo $centre >out");
    EXPECT_EQ(folder_.read("out"), "98.2\n");
    for (const char* word : {"mp3", "2.4X", "1e", "-5", "0x10", "..", "1.2e66"}) {
        EXPECT_NE(tryTo(std::string("read_words ") + word), 0) << word;
        EXPECT_THAT(said(), HasSubstr("is no format")) << word;
    }
}

TEST_F(RunScript, ASettingTakesThePlaceOfItsLineOrOfTheCommentThatShowsIt) {
    folder_.write("hm-16.ini", "; words\nsource = synthetic\n;file = x\nlevel_step_db = 0.1\n");
    run("set_key hm-16.ini source recording; set_key hm-16.ini file '/with blanks/a\\b.wav'");
    run("set_key hm-16.ini rate_hz 2400000");
    EXPECT_EQ(ini(),
              "; words\r\nsource = recording\r\nfile = /with blanks/a\\b.wav\r\n"
              "level_step_db = 0.1\r\nrate_hz = 2400000\r\n");
    run("setting_of hm-16.ini file >out");
    EXPECT_EQ(folder_.read("out"), "/with blanks/a\\b.wav\n");
}

TEST_F(RunScript, EachRecordingHasAFolderOfItsOwn) {
    run("mkdir racks; folder_for racks file /a/band.cu8 band >out");
    EXPECT_EQ(folder_.read("out"), "racks/band\n");
    run("mkdir racks/band; echo 'file = /a/band.cu8' >racks/band/hm-16.ini;"
        "folder_for racks file /a/band.cu8 band >out; folder_for racks file /b/band.cu8 band >>out;"
        "folder_for racks file '/c/my band' 'my band' >>out; folder_for racks file /d/.. .. >>out");
    EXPECT_EQ(folder_.read("out"), "racks/band\nracks/band-2\nracks/my_band\nracks/recording\n");
}

// A build whose survey finds a station, or fails if a test wants that, and notes its arguments.
class RackScript : public RunScript {
 protected:
    RackScript() {
        run("mkdir -p build/app build/receiver build/drivers/probe build/drivers/host racks;"
            "echo host >build/drivers/host/hm16-host;"
            "echo program >build/app/hmonitor; echo library >build/receiver/hm-16.so;"
            "echo probe >build/drivers/probe/hm16-probe");
        surveyIs("[ \"$2\" != --presets ] || printf found >\"$3\"");
    }
    void surveyIs(const std::string& body) const {
        folder_.write("build/receiver/hm16-survey",
                      "#!/bin/sh\necho \"$@\" >>asked\n" + body + "\n");
        chmod((folder_.path() / "build/receiver/hm16-survey").c_str(), 0755);
    }
    int lay(const std::string& words = "") const {
        return tryTo("read_words " + words +
                     "; lay_receiver " HMONITOR_SOURCE_DIR " build racks/band file /a/band.cu8");
    }
    bool is(const std::string& name) const {
        return std::filesystem::exists(folder_.path() / name);
    }
};

TEST_F(RackScript, ANewOneHasTheRecordingAndItsStations) {
    EXPECT_EQ(lay("cu8 2.4M 98.2"), 0) << said();
    const std::string ini = folder_.read("racks/band/hm-16.ini");
    EXPECT_THAT(ini, HasSubstr("\nsource = recording\r\n"));
    EXPECT_THAT(ini, HasSubstr("\nfile = /a/band.cu8\r\n"));
    EXPECT_THAT(ini, HasSubstr("\nformat = cu8\r\n"));
    EXPECT_THAT(ini, HasSubstr("\nrate_hz = 2400000\r\n"));
    EXPECT_THAT(ini, HasSubstr("\ncentre_mhz = 98.2\r\n"));
    EXPECT_EQ(folder_.read("racks/band/halden.dat"), "found");
    EXPECT_TRUE(is("racks/band/hmonitor"));
    EXPECT_TRUE(is("racks/band/Logs"));
    EXPECT_FALSE(is("racks/band.new"));
}

TEST_F(RackScript, ARadioIsSaidToTakeAWhile) {
    EXPECT_EQ(tryTo("read_words; lay_receiver " HMONITOR_SOURCE_DIR
                    " build racks/radio soapy_device driver=rtlsdr"),
              0)
        << said();
    EXPECT_THAT(said(), HasSubstr("The band is gone over once, for stations"));
    EXPECT_EQ(lay(), 0);
    EXPECT_EQ(said(), "") << "a recording is gone over at once";
}

TEST_F(RackScript, WhatCannotBePlayedLeavesNothingBehind) {
    surveyIs("echo 'It is empty.' >&2; exit 1");
    EXPECT_NE(lay("cu8"), 0);
    EXPECT_EQ(said(), "It is empty.\n");
    EXPECT_FALSE(is("racks/band"));
    EXPECT_FALSE(is("racks/band.new"));
}

TEST_F(RackScript, OnlyARecordingThatLacksAWordIsAdvisedToName) {
    surveyIs("echo 'It does not tell its rate.' >&2; exit 3");
    EXPECT_NE(lay(), 0);
    EXPECT_THAT(said(), HasSubstr("Name it behind the file: ./run receiver FILE"));
}

TEST_F(RackScript, ASecondStartKeepsSettingsAndMemories) {
    EXPECT_EQ(lay(), 0);
    folder_.write("racks/band/halden.dat", "mine");
    const std::string before = folder_.read("racks/band/hm-16.ini");
    folder_.write("asked", "");
    EXPECT_EQ(lay(), 0) << said();
    EXPECT_EQ(folder_.read("racks/band/hm-16.ini"), before);
    EXPECT_EQ(folder_.read("racks/band/halden.dat"), "mine");
    EXPECT_EQ(folder_.read("asked"), "");
}

TEST_F(RackScript, WhatIsNamedAnewIsTriedBeforeItIsWritten) {
    EXPECT_EQ(lay(), 0);
    const std::string before = folder_.read("racks/band/hm-16.ini");
    surveyIs("exit 1");
    EXPECT_NE(lay("2.4M"), 0);
    EXPECT_EQ(folder_.read("racks/band/hm-16.ini"), before);
    EXPECT_FALSE(is("racks/band.new"));
    surveyIs("exit 0");
    EXPECT_EQ(lay("2.4M"), 0) << said();
    EXPECT_THAT(folder_.read("racks/band/hm-16.ini"), HasSubstr("\nrate_hz = 2400000\r\n"));
}

TEST_F(RackScript, ASourceThatTheUserWroteStays) {
    EXPECT_EQ(lay(), 0);
    run("set_key racks/band/hm-16.ini source soapy");
    EXPECT_EQ(lay(), 0);
    EXPECT_THAT(said(), HasSubstr("source = soapy; it stays so."));
    EXPECT_THAT(folder_.read("racks/band/hm-16.ini"), HasSubstr("\nsource = soapy\r\n"));
}

TEST_F(RackScript, AFolderInUseIsLeftAlone) {
    EXPECT_EQ(lay(), 0);
    folder_.write("racks/band/hmonitor", "running");
    const std::string before = folder_.read("racks/band/hm-16.ini");
    const int held = open((folder_.path() / "racks/band").c_str(), O_RDONLY | O_DIRECTORY);
    ASSERT_EQ(flock(held, LOCK_EX | LOCK_NB), 0);
    EXPECT_NE(lay("2.4M"), 0);
    close(held);
    EXPECT_THAT(said(), HasSubstr("is in use by another HMonitor"));
    EXPECT_EQ(folder_.read("racks/band/hmonitor"), "running");
    EXPECT_EQ(folder_.read("racks/band/hm-16.ini"), before);
}

TEST_F(RackScript, TheOnlyRadioIsTakenAndSeveralAreNamed) {
    surveyIs("printf 'driver=rtlsdr,serial=1\\tA stick\\n'");
    run("only_radio build '' >out");
    EXPECT_EQ(folder_.read("out"), "driver=rtlsdr,serial=1\n");
    EXPECT_THAT(folder_.read("asked"), HasSubstr("--radios"));
    EXPECT_THAT(said(), HasSubstr("A stick"));
    surveyIs("printf 'driver=rtlsdr\\tA stick\\ndriver=airspy\\tAnother\\n'");
    EXPECT_NE(tryTo("only_radio build ''"), 0);
    EXPECT_THAT(said(), HasSubstr("Name the driver of one of them"));
}

TEST_F(RackScript, WithoutARadioOneSentenceNamesThePackages) {
    surveyIs("exit 1");
    EXPECT_NE(tryTo("only_radio build rtlsdr"), 0);
    EXPECT_THAT(said(), HasSubstr("There is no radio of driver rtlsdr."));
    EXPECT_THAT(said(), HasSubstr("soapysdr-module-rtlsdr"));
    const std::string all = said();
    EXPECT_EQ(std::count(all.begin(), all.end(), '\n'), 1) << all;
}

}  // namespace
