// SPDX-License-Identifier: GPL-3.0-or-later
// The first contents of the working folder match the simulated band.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <vector>

#include "base/number_in_text.h"
#include "base/plain_text.h"
#include "drivers/simulated/band.h"
#include "drivers/simulated/options.h"
#include "drivers/simulated/station.h"

namespace {

using hm16::simulated::bandLevel;
using hm16::simulated::Station;

std::string installed(const std::string& name) {
    std::ifstream in(std::string(HMONITOR_SOURCE_DIR) + "/install/" + name, std::ios::binary);
    EXPECT_TRUE(in) << name;
    return {std::istreambuf_iterator<char>(in), {}};
}

// The lines of a file in which every line ends with carriage return and line feed.
std::vector<std::string> lines(const std::string& name) {
    std::vector<std::string> result;
    std::istringstream in(installed(name));
    for (std::string line; std::getline(in, line);) {
        EXPECT_TRUE(line.ends_with('\r')) << name << ": " << line;
        if (!line.empty()) line.pop_back();
        result.push_back(line);
    }
    EXPECT_TRUE(installed(name).ends_with("\r\n")) << name;
    return result;
}

struct Memory {
    std::string name;
    std::string frequency;
};

Memory memory(const std::string& block, int number) {
    const auto base = static_cast<std::size_t>(number) * 16;
    EXPECT_EQ(block.at(base), '-') << number;
    EXPECT_EQ(block.at(base + 10), '-') << number;
    return {block.substr(base + 1, 9), block.substr(base + 11, 5)};
}

// 10255 stands for 1025.5, a half step.
double frequencyOf(const Memory& memory) {
    const double value = base::numberIn(memory.frequency).value_or(0);
    return value >= 8755 ? std::floor(value / 10) + 0.5 : value;
}

TEST(Install, HasEveryFileThatTheProgramTakesForGrantedAndAFolderForLogs) {
    const std::filesystem::path install = HMONITOR_SOURCE_DIR "/install";
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(install)) {
        names.insert(entry.path().filename().string());
    }
    EXPECT_THAT(names, testing::IsSupersetOf({"Hm-res.dat", "Logs", "halden.dat", "hm-16.dat",
                                              "hm-16.hlp", "hm-16.ini", "normal.hm", "scan.dat"}));
    EXPECT_TRUE(std::filesystem::is_directory(install / "Logs"));
}

TEST(Install, SettingsOfThePanelsAreTheirFirstOnes) {
    EXPECT_THAT(lines("hm-16.dat"), testing::ElementsAre("1", "0", "0", "1", "0", "0", "0", "0"));
    EXPECT_THAT(lines("Hm-res.dat"), testing::ElementsAre("0", "0", "0"));
    const auto normal = lines("normal.hm");
    ASSERT_EQ(normal.size(), 9u);
    EXPECT_EQ(normal[0], "100");
    EXPECT_EQ(normal[4], "1.000");
    EXPECT_EQ(normal[7], "2");
    EXPECT_EQ(normal[8], "90");
    for (const auto& line : normal) EXPECT_TRUE(base::numberIn(line)) << line;
}

TEST(Install, EveryMemoryIsEmptyOrAStationOfTheBandByItsName) {
    const std::string block = installed("halden.dat");
    ASSERT_EQ(block.size(), 300u);
    int filled = 0, half = 0, empty = 0;
    for (int number = 1; number <= 16; ++number) {
        const Memory m = memory(block, number);
        if (base::trimmed(m.frequency).empty()) {
            ++empty;
            EXPECT_EQ(m.frequency, "     ");
            EXPECT_TRUE(base::trimmed(m.name).empty());
            continue;
        }
        ++filled;
        const double frequency = frequencyOf(m);
        const Station* const station = hm16::simulated::stationAt(frequency);
        ASSERT_NE(station, nullptr) << m.name;
        EXPECT_EQ(station->frequency, frequency) << m.name;
        EXPECT_EQ(station->name, base::trimmed(m.name));
        half += frequency != std::floor(frequency) ? 1 : 0;
    }
    EXPECT_GE(filled, 9);
    EXPECT_EQ(half, 1);
    EXPECT_GE(empty, 2);
}

TEST(Install, EmptyMemoriesLieBetweenFilledOnes) {
    const std::string block = installed("halden.dat");
    const auto filled = [&](int n) { return !base::trimmed(memory(block, n).frequency).empty(); };
    int between = 0;
    for (int n = 2; n <= 15; ++n) between += !filled(n) && filled(n - 1) && filled(n + 1) ? 1 : 0;
    EXPECT_GE(between, 2);
}

TEST(Install, TheFirstMemoryIsAStrongStereoStation) {
    const Memory first = memory(installed("halden.dat"), 1);
    const Station* const station = hm16::simulated::stationAt(frequencyOf(first));
    ASSERT_NE(station, nullptr);
    EXPECT_GE(station->field, 80);
    EXPECT_TRUE(station->isStereo());
    EXPECT_TRUE(station->hasRds());
    EXPECT_LT(station->multipath, 6);
}

// One line for each channel from 87.5 MHz in steps of 0.2: a whole level without a leading blank.
TEST(Install, TheFirstBandScanShowsTheSimulatedBand) {
    const auto levels = lines("scan.dat");
    ASSERT_EQ(levels.size(), 103u);
    for (std::size_t i = 0; i < levels.size(); ++i) {
        const auto level = base::numberIn(levels[i]);
        ASSERT_TRUE(level) << i;
        EXPECT_EQ(*level, std::floor(*level));
        double low = 1000, high = -1000;
        for (int moment = 0; moment < 300; ++moment) {
            const double now = bandLevel(16, 875 + 2 * static_cast<double>(i), moment * 0.11);
            low = std::min(low, now);
            high = std::max(high, now);
        }
        EXPECT_GE(*level, low - 2) << 87.5 + 0.2 * static_cast<double>(i);
        EXPECT_LE(*level, high + 2) << 87.5 + 0.2 * static_cast<double>(i);
    }
}

TEST(Install, TheSettingsOfTheUnitAreTheOnesThatItHasWithoutThem) {
    auto settings = hm16::Settings::parse(installed("hm-16.ini"), "hm-16.ini");
    const auto options = hm16::simulated::readOptions(settings);
    EXPECT_THAT(settings.faults(), testing::IsEmpty());
    auto none = hm16::Settings::parse("", "hm-16.ini");
    const auto defaults = hm16::simulated::readOptions(none);
    EXPECT_EQ(options.version, defaults.version);
    EXPECT_EQ(options.seed, defaults.seed);
    EXPECT_EQ(options.pace, defaults.pace);
    EXPECT_EQ(options.levelStep, defaults.levelStep);
    EXPECT_EQ(options.clock, defaults.clock);
    EXPECT_EQ(options.silentAfter, defaults.silentAfter);
    EXPECT_EQ(options.superFailsAfter, defaults.superFailsAfter);
    EXPECT_EQ(options.garbage, defaults.garbage);
    EXPECT_EQ(options.garbageEvery, defaults.garbageEvery);
    EXPECT_EQ(options.responsePairs, defaults.responsePairs);
    for (const char* key : {"version", "seed", "pace", "level_step_db", "clock", "silent_after",
                            "super_fails_after", "garbage", "garbage_every", "response_pairs"}) {
        EXPECT_TRUE(settings.has(key)) << key;
    }
    lines("hm-16.ini");
}

TEST(Install, ThePageForLibraryWritersListsTheSameSettings) {
    std::ifstream in(std::string(HMONITOR_SOURCE_DIR) + "/docs/driver.md");
    const std::string page{std::istreambuf_iterator<char>(in), {}};
    int settings = 0;
    for (const std::string& line : lines("hm-16.ini")) {
        const auto equals = line.find(" = ");
        if (line.empty() || line.front() == ';') continue;
        ASSERT_NE(equals, std::string::npos) << line;
        const std::string row =
            "| `" + line.substr(0, equals) + "` | " + line.substr(equals + 3) + " |";
        EXPECT_THAT(page, testing::HasSubstr(row));
        ++settings;
    }
    EXPECT_EQ(settings, 10);
}

}  // namespace
