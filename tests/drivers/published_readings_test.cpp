// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/unit/published_readings.h"

#include <gtest/gtest.h>

#include <bit>
#include <limits>
#include <thread>

namespace hm16 {
namespace {

TEST(PublishedReadings, ShowsWhatWasPublishedLast) {
    PublishedReadings published;
    EXPECT_EQ(published.latest(), Readings{});
    Readings readings;
    readings.peakModulation = 88;
    readings.rdsLevel = 3;
    published.publish(readings);
    EXPECT_EQ(published.latest(), readings);
    readings.field = 60;
    published.publish(readings);
    EXPECT_EQ(published.latest(), readings);
}

TEST(PublishedReadings, OrdinaryReadingsNeverShowTheEndMark) {
    PublishedReadings published;
    for (const float level : {18.0f, 18.4f, 18.999f}) {
        for (const float error : {11583.0f, 11583.5f, 11583.99f}) {
            Readings readings;
            readings.pilotError = error;
            readings.pilotLevel = level;
            published.publish(readings);
            EXPECT_EQ(published.latest().pilotError, error - 1);
            EXPECT_EQ(published.latest().pilotLevel, level);
        }
    }
}

TEST(PublishedReadings, LeavesNeighboursOfTheEndMarkAlone) {
    PublishedReadings published;
    const float pairs[][2] = {{11582.9f, 18}, {11584, 18}, {11583, 17.9f}, {11583, 19}};
    for (const auto& pair : pairs) {
        Readings readings;
        readings.pilotError = pair[0];
        readings.pilotLevel = pair[1];
        published.publish(readings);
        EXPECT_EQ(published.latest(), readings);
    }
}

TEST(PublishedReadings, ShowsTheEndMarkWithTheOtherReadings) {
    PublishedReadings published;
    Readings readings;
    readings.field = 77;
    published.publishEndMark(readings);
    EXPECT_EQ(published.latest().pilotError, 11583);
    EXPECT_EQ(published.latest().pilotLevel, 18);
    EXPECT_EQ(published.latest().field, 77);
}

TEST(PublishedReadings, PassesNotANumberThrough) {
    PublishedReadings published;
    Readings readings;
    readings.pilotError = std::numeric_limits<float>::quiet_NaN();
    published.publish(readings);
    EXPECT_NE(published.latest().pilotError, published.latest().pilotError);
}

// All fields of a set have the same value, so a mixture of two sets would be noticed.
TEST(PublishedReadings, AReaderInAnotherThreadNeverSeesPartsOfTwoSets) {
    PublishedReadings published;
    std::thread writer([&published] {
        for (int set = 1; set <= 200000; ++set) {
            std::array<float, 18> values;
            values.fill(static_cast<float>(set));
            published.publish(std::bit_cast<Readings>(values));
        }
    });
    float last = 0;
    bool mixed = false;
    bool backwards = false;
    while (last < 200000) {
        const auto values = std::bit_cast<std::array<float, 18>>(published.latest());
        for (const float value : values) mixed = mixed || value != values[0];
        backwards = backwards || values[0] < last;
        last = values[0];
        if (mixed) break;
    }
    writer.join();
    EXPECT_FALSE(mixed);
    EXPECT_FALSE(backwards);
}

}  // namespace
}  // namespace hm16
