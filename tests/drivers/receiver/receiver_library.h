// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>

#include "drivers/hm16_report.h"
#include "drivers/receiver/figures/audio_power.h"
#include "tests/drivers/loaded_library.h"

// The receiver in software as the program has it: its library through the real loader.
class ReceiverLibrary : public LoadedLibrary {
 public:
    explicit ReceiverLibrary(std::string_view settings) : LoadedLibrary(HM16_RECEIVER, settings) {}

    // Opens the unit; returns its messages on standard error.
    std::string init() const {
        testing::internal::CaptureStderr();
        (*this)->init();
        return testing::internal::GetCapturedStderr();
    }

    // Measures so many slots; false if it cannot.
    bool step(int slots) const {
        return reinterpret_cast<HM16_StepFunction>(library().extra(HM16_STEP_NAME))(slots) == 0;
    }

    std::string report() const {
        std::array<char, 4096> text{};
        reinterpret_cast<HM16_ReportFunction>(library().extra(HM16_REPORT_NAME))(
            text.data(), static_cast<int32_t>(text.size()));
        return text.data();
    }
};

// The readings when nothing is known.
inline hm16::Readings nothing() {
    hm16::Readings readings;
    readings.levelFirst = readings.levelSecond = static_cast<float>(hm16::receiver::kSilenceDb);
    readings.stereoPhase = 45;
    return readings;
}

inline long lines(const std::string& text) {
    return std::count(text.begin(), text.end(), '\n');
}

// The program gets a unit of version 0, the user one sentence with file and line.
inline void expectNoUnit(const ReceiverLibrary& receiver, const std::string& said, int line,
                         const std::string& reason) {
    const std::string file = (receiver.folder().path() / "hm-16.ini").string();
    EXPECT_NE(said.find(file + ", line " + std::to_string(line) + ": "), std::string::npos) << said;
    EXPECT_NE(said.find(reason), std::string::npos) << said;
    EXPECT_EQ(lines(said), 1) << said;
    EXPECT_EQ(receiver.version(), 0);
}
