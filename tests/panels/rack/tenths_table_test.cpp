// SPDX-License-Identifier: GPL-3.0-or-later
// Every row of tenths_table.txt on the panels themselves; tenths_table.py works it out on its own.
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "tests/panels/rack/rack_view.h"

namespace hmonitor::test {
namespace {

struct Row {
    float reading;
    std::vector<std::string> shown;
};

std::vector<Row> rows(const std::string& kind) {
    std::ifstream file(HMONITOR_SOURCE_DIR "/tests/panels/rack/tenths_table.txt");
    std::vector<Row> found;
    for (std::string line; std::getline(file, line);) {
        std::istringstream fields(line);
        std::string of, bits;
        fields >> of >> bits;
        if (of != kind) continue;
        Row row;
        row.reading =
            std::bit_cast<float>(static_cast<std::uint32_t>(std::stoul(bits, nullptr, 16)));
        for (std::string field; fields >> field;) row.shown.push_back(field);
        found.push_back(row);
    }
    return found;
}

class Table : public testing::Test {
 protected:
    void SetUp() override {
        bench.start();
        bench.readings.rdsLevel = 5;
    }
    std::string see(const char* place) {
        std::string shown = view.see(place);
        std::ranges::replace(shown, '_', '.');
        return shown;
    }
    void refresh() {
        bench.formC.Command4();
        bench.formC.Command6();
        bench.formC.Command11();
        bench.formC.Command13();
        bench.formC.Command1();
    }

    RackBench bench;
    RackView view{bench};
};

TEST_F(Table, EveryTenthOnTheTenthsDisplays) {
    const auto all = rows("tenth");
    ASSERT_EQ(all.size(), 1999u);
    for (const Row& row : all) {
        SCOPED_TRACE(row.reading);
        ASSERT_EQ(row.shown.size(), 6u);
        for (const int output : {6, 8, 9, 10, 11, 14}) bench.output(output) = row.reading;
        bench.readings.pilotLevel = 10;  // a pilot
        bench.readings.rdsError = row.reading;
        refresh();
        bench.form1.ActualizarModulacion_Displays();
        for (const char* label :
             {"left noise", "right noise", "left separation", "right separation", "field"}) {
            EXPECT_EQ(see(label), row.shown[0]) << label;
        }
        for (const char* label : {"19 kHz", "57 kHz"}) EXPECT_EQ(see(label), row.shown[1]) << label;
        EXPECT_EQ(see("19 kHz digits"), row.shown[2]);
        EXPECT_EQ(see("noise digits"), row.shown[4] + row.shown[4]);
        EXPECT_EQ(see("separation digits"), row.shown[5] + row.shown[5]);

        bench.readings.pilotLevel = row.reading;
        bench.readings.rdsLevel = row.reading;
        refresh();
        for (const char* label : {"pilot", "RDS"}) EXPECT_EQ(see(label), row.shown[0]) << label;
        EXPECT_EQ(see("pilot digits"), row.shown[3]);
        const std::string error = row.reading > 0.3f ? row.shown[1] : "----";
        for (const char* label : {"19 kHz", "57 kHz"}) EXPECT_EQ(see(label), error) << label;
        bench.readings.rdsLevel = 5;
        if (HasFailure()) break;
    }
}

TEST_F(Table, EveryHundredthOfTheDistortion) {
    const auto all = rows("hundredth");
    ASSERT_EQ(all.size(), 1000u);
    for (const Row& row : all) {
        SCOPED_TRACE(row.reading);
        bench.readings.distortion = row.reading;
        refresh();
        EXPECT_EQ(see("distortion"), row.shown[0]);
        EXPECT_EQ(see("distortion digits"), row.shown[1]);
        if (HasFailure()) break;
    }
}

}  // namespace
}  // namespace hmonitor::test
