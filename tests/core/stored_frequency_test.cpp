// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stored_frequency.h"

#include <gtest/gtest.h>

namespace hmonitor {
namespace {

TEST(StoredFrequencyTest, ThreeOrFourDigitsAreWholeSteps) {
    EXPECT_EQ(parseStoredFrequency("875  "), (StoredFrequency{875, HalfStep::No}));
    EXPECT_EQ(parseStoredFrequency("1080 "), (StoredFrequency{1080, HalfStep::No}));
    EXPECT_EQ(parseStoredFrequency("8754 "), (StoredFrequency{8754, HalfStep::No}));
}

TEST(StoredFrequencyTest, FromExactly8755OnTheLastDigitIsTheHalfStep) {
    EXPECT_EQ(parseStoredFrequency("8755 "), (StoredFrequency{875, HalfStep::Yes}));
    EXPECT_EQ(parseStoredFrequency("9815 "), (StoredFrequency{981, HalfStep::Yes}));
    EXPECT_EQ(parseStoredFrequency("10255"), (StoredFrequency{1025, HalfStep::Yes}));
    EXPECT_EQ(parseStoredFrequency("10805"), (StoredFrequency{1080, HalfStep::Yes}));
}

TEST(StoredFrequencyTest, TheTunedFrequencyHasThePointOfTheHalfStep) {
    EXPECT_EQ(parseStoredFrequency("8755").tuned(), 875.5);
    EXPECT_EQ(parseStoredFrequency("875").tuned(), 875);
}

TEST(StoredFrequencyTest, AnythingElseIsZero) {
    EXPECT_EQ(parseStoredFrequency("     "), StoredFrequency{});
    EXPECT_EQ(parseStoredFrequency("abcde"), StoredFrequency{});
}

TEST(StoredFrequencyTest, AllOfTheBandSurvivesTheRoundTrip) {
    for (int frequency = 875; frequency <= 1080; ++frequency) {
        for (HalfStep half : {HalfStep::No, HalfStep::Yes}) {
            const StoredFrequency stored{static_cast<double>(frequency), half};
            const SmallText text = storedFrequencyText(stored);
            EXPECT_EQ(parseStoredFrequency(text), stored) << text;
            EXPECT_LE(text.size(), 5u);
        }
    }
    EXPECT_EQ(storedFrequencyText({875, HalfStep::Yes}), "8755");
}

}  // namespace
}  // namespace hmonitor
