// SPDX-License-Identifier: GPL-3.0-or-later
// What docs/formats.md says is what the readers do.
#include <gtest/gtest.h>

#include "core/memory_block.h"
#include "core/numbers.h"
#include "core/panel_settings.h"
#include "core/response_switch.h"
#include "core/results_file.h"
#include "core/station_defaults.h"
#include "core/text_lines.h"
#include "tests/core/formats_page.h"
#include "tests/support/temp_folder.h"

namespace hmonitor {
namespace {

struct FormatsTest : testing::Test {
    test::FormatsPage page;
    test::TempFolder temp;
    Files files{temp.path()};

    void putExample(const std::string& name) { temp.write(name, joinLines(page.example(name))); }

    // Each row: content, lines used, "read" or the message.
    void checkRows(const std::string& name) {
        const auto rows = page.rows(name);
        ASSERT_FALSE(rows.empty());
        for (const auto& row : rows) {
            ASSERT_EQ(row.size(), 3u);
            temp.write(name, test::unescaped(row[0]));
            const auto lines = files.readLines(name, static_cast<int>(valueOf(row[1])));
            EXPECT_EQ(lines ? "read" : lines.fault().sentence, row[2]) << row[0];
        }
    }
};

TEST_F(FormatsTest, TheExampleOfThePanelSettingsReadsAsThePageSays) {
    putExample("hm-16.dat");
    const auto settings = PanelSettings::read(files, PanelLine::ScannerOffset);
    ASSERT_TRUE(settings);
    EXPECT_EQ(settings->value(PanelLine::MemoryPreset), 3);
    EXPECT_EQ(settings->value(PanelLine::DbCorrection), -3.5);
    EXPECT_EQ(settings->line(PanelLine::OddFrequencies), "0");
    EXPECT_EQ(settings->line(PanelLine::AllFrequencies), "1");
    EXPECT_EQ(settings->line(PanelLine::MakeLog), "0");
    EXPECT_EQ(settings->line(PanelLine::Detector), "1");
    EXPECT_EQ(settings->line(PanelLine::AudioMode), "0");
    const std::string before = temp.read("hm-16.dat");
    EXPECT_FALSE(settings->write(files));
    EXPECT_EQ(temp.read("hm-16.dat"), before);
}

TEST_F(FormatsTest, TheExampleOfTheOnAirFiguresReadsAsThePageSays) {
    putExample("normal.hm");
    const auto defaults = StationDefaults::read(files);
    ASSERT_TRUE(defaults);
    EXPECT_EQ(defaults->Text2, "100");
    EXPECT_EQ(defaults->Text1, "1.000");
    EXPECT_EQ(defaults->Text3, "2");
    EXPECT_EQ(defaults->Text4, "90");
}

TEST_F(FormatsTest, TheExampleOfThePresetsReadsAsThePageSays) {
    std::string bytes;
    for (const std::string& line : page.example("halden.dat")) {
        const auto bar = line.find('|');
        EXPECT_EQ(valueOf(line), static_cast<double>(bytes.size() + 1));
        bytes += line.substr(bar + 1, line.rfind('|') - bar - 1);
    }
    ASSERT_EQ(bytes.size(), MemoryBlock::kSize);
    MemoryBlock block(bytes);
    EXPECT_EQ(block.name(1), "RADIO UNO");
    EXPECT_EQ(block.frequency(1).tuned(), 875.5);
    EXPECT_EQ(block.name(2), "CENTRAL  ");
    EXPECT_EQ(block.frequency(2).tuned(), 1069);
    for (int memory = 3; memory <= 16; ++memory) EXPECT_TRUE(block.isEmpty(memory)) << memory;
    block.store(1, "RADIO UNO", "8755");
    block.erase(3);
    EXPECT_EQ(block.bytes(), bytes);
}

TEST_F(FormatsTest, PresetBlocksOfOddSizesAreSavedAsThePageSays) {
    const auto rows = page.rows("halden.dat");
    ASSERT_EQ(rows.size(), 5u);
    for (const auto& row : rows) {
        const auto size = static_cast<std::size_t>(valueOf(row.at(0)));
        temp.write("halden.dat", std::string(size, 'x'));
        EXPECT_FALSE(MemoryBlock::read(files)->write(files));
        const std::string saved = std::to_string(temp.read("halden.dat").size());
        EXPECT_TRUE(row.at(1).ends_with("a save writes " + saved + " bytes")) << row.at(1);
    }
}

TEST_F(FormatsTest, TheExampleOfTheResponseSwitchIsWhatArmingWrites) {
    EXPECT_FALSE(ResponseSwitch::armed(-1.5f, 8.9f).write(files));
    EXPECT_EQ(temp.read("Hm-res.dat"), joinLines(page.example("Hm-res.dat")));
}

TEST_F(FormatsTest, TheExampleOfTheResultsGivesTheFloorsOfThePage) {
    putExample("0985.dat");
    StationState state;
    ResultsFile::read(files, 985).putFloors(state);
    EXPECT_EQ(state.FloorNoiseL, "-68.5");
    EXPECT_EQ(state.FloorNoiseR, "-70.1");
    EXPECT_EQ(state.FloorSepL, "45");
    EXPECT_EQ(state.FloorSepR, "44");
    EXPECT_EQ(state.FloorThd, "29");
}

TEST_F(FormatsTest, ResultsThatAreMissingAreWhatThePageSays) {
    StationState state;
    ResultsFile::read(files, 985).putFloors(state);
    const auto rows = page.rows("Results");
    ASSERT_EQ(rows.size(), 5u);
    EXPECT_EQ(state.FloorNoiseL, rows[0].at(2));
    EXPECT_EQ(state.FloorNoiseR, rows[1].at(2));
    EXPECT_EQ(state.FloorSepL, rows[2].at(2));
    EXPECT_EQ(state.FloorSepR, rows[3].at(2));
    EXPECT_EQ(state.FloorThd, rows[4].at(2));
}

TEST_F(FormatsTest, TornAndOddFilesBecomeWhatThePageSays) {
    checkRows("hm-16.dat");
    checkRows("normal.hm");
    checkRows("Hm-res.dat");
}

}  // namespace
}  // namespace hmonitor
