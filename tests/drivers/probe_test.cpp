// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <sstream>

#include "drivers/loader/library.h"
#include "drivers/probe/csv.h"
#include "drivers/probe/probe_options.h"
#include "tests/support/temp_folder.h"

namespace hm16::probe {
namespace {

using hmonitor::test::TempFolder;

using testing::HasSubstr;
using testing::StartsWith;

Parsed parseWords(std::initializer_list<std::string_view> words) {
    const std::vector<std::string_view> list(words);
    return parseArguments(list);
}

TEST(ProbeOptions, AFolderIsEnough) {
    const auto parsed = parseWords({"lib"});
    ASSERT_TRUE(parsed.options);
    EXPECT_EQ(parsed.options->library, "lib");
    EXPECT_EQ(parsed.options->what, What::Readings);
}

TEST(ProbeOptions, TakesEveryOption) {
    const auto parsed = parseWords(
        {"lib",       "sweep", "--frequency", "102.55",   "--seconds", "1.5",  "--every",  "0.02",
         "--from",    "88",    "--to",        "90",       "--step",    "25",   "--rounds", "3",
         "--average", "--sum", "--log",       "--report", "--files",   "there"});
    ASSERT_TRUE(parsed.options) << parsed.message;
    const Options& o = *parsed.options;
    EXPECT_EQ(o.what, What::Sweep);
    EXPECT_EQ(o.frequency, 102.55);
    EXPECT_EQ(o.seconds, 1.5);
    EXPECT_EQ(o.every, 0.02);
    EXPECT_EQ(o.from, 88);
    EXPECT_EQ(o.to, 90);
    EXPECT_EQ(o.stepKhz, 25);
    EXPECT_EQ(o.rounds, 3);
    EXPECT_TRUE(o.average && o.sum && o.log && o.report);
    EXPECT_EQ(o.files, "there");
}

TEST(ProbeOptions, SaysWhatIsWrong) {
    const std::string more = "; --help tells more.";
    EXPECT_EQ(parseWords({}).message, "FOLDER is required" + more);
    EXPECT_EQ(parseWords({"lib", "noise"}).message,
              "WHAT: noise not in {readings,levels,sweep,response,figures,slots}" + more);
    EXPECT_THAT(parseWords({"lib", "--frequency"}).message, StartsWith("--frequency: 1 required"));
    EXPECT_EQ(parseWords({"lib", "--frequency", "5"}).message,
              "--frequency: \"5\" is no number from 60 to 130" + more);
    for (const char* odd : {"nan", "inf", "0x60", "9e1", "98,5", "-98"}) {
        EXPECT_EQ(parseWords({"lib", "--frequency", odd}).message,
                  "--frequency: \"" + std::string(odd) + "\" is no number from 60 to 130" + more);
    }
    EXPECT_EQ(parseWords({"lib", "--quick"}).message,
              "The following argument was not expected: --quick" + more);
    EXPECT_EQ(parseWords({"lib", "sweep", "x"}).message,
              "The following argument was not expected: x" + more);
    EXPECT_EQ(parseWords({"lib", "--from", "90", "--to", "89"}).message, "--to lies below --from.");
    EXPECT_FALSE(parseWords({"lib", "--quick"}).options);
}

TEST(ProbeOptions, OfAnOptionGivenTwiceTheLastCounts) {
    const auto parsed = parseWords({"lib", "--from", "88", "--log", "--from", "89", "--log"});
    ASSERT_TRUE(parsed.options) << parsed.message;
    EXPECT_EQ(parsed.options->from, 89);
    EXPECT_TRUE(parsed.options->log);
}

TEST(ProbeOptions, HelpNamesEveryOption) {
    const auto parsed = parseWords({"--help"});
    EXPECT_TRUE(parsed.help);
    for (const char* option : {"--frequency", "--seconds", "--every", "--from", "--to", "--step",
                               "--rounds", "--average", "--sum", "--log", "--report", "--files"}) {
        EXPECT_THAT(parsed.message, HasSubstr(option));
    }
}

TEST(Csv, WritesNumbersAsTheyAreWithAPoint) {
    std::ostringstream out;
    Csv csv(out);
    csv.head("a,b,c");
    csv.line(std::array{0.5, -61.25, 100.0});
    csv.line(std::array{std::numeric_limits<double>::quiet_NaN(),
                        std::numeric_limits<double>::infinity(), 1e38});
    EXPECT_EQ(out.str(), "a,b,c\n0.5,-61.25,100\nnan,inf,1e+38\n");
}

struct Outcome {
    int code = -1;
    std::string out;
};

// The program itself, standard error and output together.
Outcome runProbe(const std::string& arguments) {
    const std::string command = std::string(HM16_PROBE) + " " + arguments + " 2>&1";
    std::FILE* const pipe = popen(command.c_str(), "r");
    Outcome outcome;
    std::array<char, 4096> buffer;
    while (const std::size_t read = std::fread(buffer.data(), 1, buffer.size(), pipe)) {
        outcome.out.append(buffer.data(), read);
    }
    outcome.code = WEXITSTATUS(pclose(pipe));
    return outcome;
}

long linesIn(const std::string& text) {
    return std::count(text.begin(), text.end(), '\n');
}

class Probe : public testing::Test {
 protected:
    Probe() { std::filesystem::copy(HM16_SIMULATED, folder.path() / libraryName()); }
    std::string there() const {
        return folder.path().string() + " --files " + folder.path().string();
    }

    TempFolder folder;
};

TEST_F(Probe, WritesAReadingForEachLook) {
    const Outcome outcome =
        runProbe(there() + " readings --frequency 98.5 --seconds 0.1 --every 0.02");
    EXPECT_EQ(outcome.code, 0) << outcome.out;
    EXPECT_EQ(linesIn(outcome.out), 7) << outcome.out;
    EXPECT_THAT(outcome.out, StartsWith("seconds,peak_modulation_percent,"));
    std::istringstream in(outcome.out);
    for (std::string line; std::getline(in, line);) {
        EXPECT_EQ(std::count(line.begin(), line.end(), ','), 18) << line;
    }
}

TEST_F(Probe, WritesLevelsPointByPoint) {
    folder.write("hm-16.ini", "pace = 100\n");
    const Outcome outcome = runProbe(there() + " levels --from 98 --to 99 --step 100");
    EXPECT_EQ(outcome.code, 0) << outcome.out;
    EXPECT_EQ(linesIn(outcome.out), 12);
    EXPECT_THAT(outcome.out, HasSubstr("\n1,98,"));
    EXPECT_THAT(outcome.out, HasSubstr("\n1,98.5,8"));
    EXPECT_THAT(outcome.out, HasSubstr("\n1,99,"));
}

TEST_F(Probe, WritesSweepFrames) {
    folder.write("hm-16.ini", "pace = 100\n");
    const Outcome outcome =
        runProbe(there() + " sweep --from 98 --to 99 --step 25 --rounds 2 --every 0.005");
    EXPECT_EQ(outcome.code, 0) << outcome.out;
    EXPECT_EQ(linesIn(outcome.out), 1 + 2 * 41);
}

TEST_F(Probe, WritesTheResultsOfAResponseRun) {
    folder.write("hm-16.ini", "pace = 100\n");
    const Outcome outcome = runProbe(there() + " response --every 0.01 --seconds 20");
    EXPECT_EQ(outcome.code, 0) << outcome.out;
    EXPECT_EQ(linesIn(outcome.out), 9);
    EXPECT_THAT(outcome.out, StartsWith("frequency_hz,level_db\n1000,0\n"));
}

TEST_F(Probe, ListsWhatALibraryHas) {
    const Outcome outcome = runProbe(there() + " figures");
    EXPECT_EQ(outcome.code, 0) << outcome.out;
    EXPECT_THAT(outcome.out, StartsWith("# hm16.figures.1: yes\n# hm16.listen.1: no\n"
                                        "index,key,unit,lowest,highest\n"
                                        "0,deviation_peak,kHz,0,250\n"));
    EXPECT_EQ(linesIn(outcome.out), 3 + 20);
}

TEST_F(Probe, WritesSlotsWithWordsForWhatIsNotKnown) {
    folder.write("hm-16.ini", "pace = 50\n");
    const Outcome outcome =
        runProbe(there() + " slots --frequency 98.5 --seconds 0.1 --every 0.05");
    EXPECT_EQ(outcome.code, 0) << outcome.out;
    EXPECT_THAT(outcome.out, StartsWith("number,utc_s,signal_s,deviation_peak,level_left,"));
    EXPECT_GT(linesIn(outcome.out), 40);
    const Outcome empty = runProbe(there() + " slots --frequency 87.6 --seconds 0.1 --every 0.05");
    EXPECT_THAT(empty.out, HasSubstr(",no carrier,no carrier,"));
}

TEST_F(Probe, SaysWhenALibraryTellsNoFigures) {
    const Outcome listed = runProbe(std::string(HM16_FIXTURES) + "/nineteen figures");
    EXPECT_EQ(listed.code, 1);
    EXPECT_EQ(listed.out,
              "# hm16.figures.1: no\n# hm16.listen.1: no\n"
              "hm16-probe: This library tells no figures beyond the nineteen functions.\n");
    const Outcome slots = runProbe(std::string(HM16_FIXTURES) + "/nineteen slots");
    EXPECT_EQ(slots.code, 1);
    EXPECT_EQ(runProbe(std::string(HM16_FIXTURES) + "/nineteen --seconds 0").code, 0);
}

TEST_F(Probe, FailsInOneSentence) {
    EXPECT_EQ(runProbe("").code, 1);
    const Outcome noFile = runProbe("/no/such/folder");
    EXPECT_EQ(noFile.code, 1);
    EXPECT_EQ(noFile.out, "hm16-probe: There is no driver library " +
                              (std::filesystem::path("/no/such/folder") / libraryName()).string() +
                              ".\n");
    folder.write("hm-16.ini", "version = 0\n");
    const Outcome noUnit = runProbe(there());
    EXPECT_EQ(noUnit.code, 1);
    EXPECT_EQ(noUnit.out, "hm16-probe: No unit answers (hardware version 0).\n");
    folder.write("hm-16.ini", "version = 1.5\n");
    const Outcome noFrames = runProbe(there() + " sweep");
    EXPECT_EQ(noFrames.code, 1);
    EXPECT_EQ(noFrames.out, "hm16-probe: A unit of version 1.5 delivers no sweep frames.\n");
    folder.write("hm-16.ini", "pace = 100\nsuper_fails_after = 2\n");
    const Outcome failing = runProbe(there() + " levels --from 98 --to 99 --step 100");
    EXPECT_EQ(failing.code, 1);
    EXPECT_THAT(failing.out, HasSubstr("hm16-probe: The unit failed at 98.2 MHz.\n"));
}

TEST_F(Probe, SaysWhenALibraryHasNoReport) {
    const Outcome outcome = runProbe(there() + " --seconds 0 --report");
    EXPECT_EQ(outcome.code, 0);
    EXPECT_THAT(outcome.out, HasSubstr("# This library has no report.\n"));
}

}  // namespace
}  // namespace hm16::probe
