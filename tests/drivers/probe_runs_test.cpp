// SPDX-License-Identifier: GPL-3.0-or-later
// The probe on a library that is driven step by step, as one that measures a recording.
#include "drivers/probe/probe_runs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace hm16::probe {
namespace {

// A library of plain functions whose readings count the slots by which it was driven.
struct Scripted {
    int slots = 0;
    int slotsLeft = 1000;
    int stops = 0;
    float tuned = 0;
};
Scripted scripted;

int32_t HM16_CALL stop() {
    ++scripted.stops;
    return 0;
}

int32_t HM16_CALL tune(float frequency, int32_t, int32_t, int32_t, int32_t) {
    scripted.tuned = frequency;
    return 0;
}

int32_t HM16_CALL readings(float* peakModulation, float*, float*, float*, float*, float*, float*,
                           float*, float*, float*, float*, float*, float*, float*, float*, float*) {
    *peakModulation = static_cast<float>(scripted.slots);
    return 0;
}

int32_t HM16_CALL rds(float*, float*) {
    return 0;
}

int32_t HM16_CALL step(int32_t slots) {
    if (scripted.slotsLeft < slots) return 1;
    scripted.slotsLeft -= slots;
    scripted.slots += slots;
    return 0;
}

HM16_Functions driver() {
    scripted = {};
    HM16_Functions functions{};
    functions.parar = stop;
    functions.normal = tune;
    functions.data = readings;
    functions.dataRds = rds;
    return functions;
}

std::vector<std::string> firstTwoColumns(const std::string& csv) {
    std::vector<std::string> result;
    std::istringstream in(csv);
    std::string line;
    std::getline(in, line);
    while (std::getline(in, line)) {
        result.push_back(line.substr(0, line.find(',', line.find(',') + 1)));
    }
    return result;
}

TEST(ProbeRuns, TimeIsThatOfTheSignalWhereTheLibraryIsDriven) {
    const HM16_Functions functions = driver();
    Options options;
    options.seconds = 0.5;
    options.every = 0.25;
    std::ostringstream out;
    EXPECT_EQ(run(functions, step, options, out), "");
    EXPECT_THAT(firstTwoColumns(out.str()), testing::ElementsAre("0,0", "0.25,5", "0.5,10"));
    EXPECT_EQ(scripted.tuned, 985);
    EXPECT_EQ(scripted.stops, 2);
}

TEST(ProbeRuns, ARecordingThatEndsBeforeItsTimeEndsTheRun) {
    const HM16_Functions functions = driver();
    scripted.slotsLeft = 7;
    Options options;
    options.seconds = 1000;
    options.every = 0.1;
    std::ostringstream out;
    EXPECT_EQ(run(functions, step, options, out), "");
    EXPECT_THAT(firstTwoColumns(out.str()), testing::ElementsAre("0,0", "0.1,2", "0.2,4", "0.3,6"));
    EXPECT_EQ(scripted.stops, 2);
}

}  // namespace
}  // namespace hm16::probe
