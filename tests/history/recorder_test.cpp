// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/recorder.h"

#include <gtest/gtest.h>

#include "history/query.h"
#include "tests/history/feed.h"

namespace history::test {
namespace {

Input numbered(int number) {
    Input input;
    input.khz = number;
    return input;
}

TEST(InputRing, HandsOnInOrder) {
    InputRing ring(4);
    Input out;
    EXPECT_FALSE(ring.take(out));
    for (int i = 0; i < 10; ++i) {
        EXPECT_TRUE(ring.put(numbered(i)));
        ASSERT_TRUE(ring.take(out));
        EXPECT_EQ(out.khz, i);
        EXPECT_EQ(out.lostBefore, 0);
    }
}

TEST(InputRing, WhatFindsNoRoomIsLostAndTheNextOneSaysSo) {
    InputRing ring(3);
    for (int i = 0; i < 3; ++i) EXPECT_TRUE(ring.put(numbered(i)));
    EXPECT_FALSE(ring.put(numbered(3)));
    Input out;
    ring.take(out);
    EXPECT_TRUE(ring.put(numbered(4)));
    ring.take(out);
    ring.take(out);
    EXPECT_EQ(out.lostBefore, 0);
    ring.take(out);
    EXPECT_EQ(out.khz, 4);
    EXPECT_EQ(out.lostBefore, 1);
}

TEST(InputRing, HoldsAMinuteOfHeartbeatsAndSlots) {
    EXPECT_GE(InputRing::kRoom, 60u * (1000 / 30 + 20));
    EXPECT_LE(InputRing::kRoom * sizeof(Input), 1u << 20);
}

TEST(InputRing, BearsTwoThreads) {
    InputRing ring(64);
    constexpr int kMany = 100000;
    std::thread putter([&ring] {
        for (int i = 1; i <= kMany;) {
            if (ring.put(numbered(i))) ++i;
        }
    });
    int next = 1;
    for (Input out; next <= kMany;) {
        if (!ring.take(out)) continue;
        ASSERT_EQ(out.khz, next++);
    }
    putter.join();
}

TEST(Recorder, WritesWhatItWasHandedBeforeItEnds) {
    TempFolder temp;
    const std::int64_t begin = utc(2026, 5, 4, 12);
    std::atomic<std::int64_t> ms{begin * 1000};
    const auto clock = [&ms] { return Moment{ms, ms}; };
    {
        Recorder recorder(Feed::settingsFor(temp.path() / "history", nullptr), clock);
        recorder.put(Inputs::tuned(ms));
        recorder.start();
        for (int i = 0; i < 200; ++i) {
            ms += 50;
            EXPECT_TRUE(recorder.put(Inputs::slot(ms, static_cast<std::uint64_t>(i + 1), 5)));
        }
        recorder.stop();
        EXPECT_EQ(recorder.status().state, StoreStatus::State::Recording);
    }
    const Query query(temp.path() / "history");
    const auto bands =
        query.bands({kStation, indexOf("field"), begin * 1000, (begin + 10) * 1000, 10});
    for (const Band& band : bands) {
        EXPECT_EQ(band.knownMs, 1000);
        EXPECT_EQ(band.mean, 5);
    }
    // Inputs from before its thread ran are older than its start.
    std::multiset<EventKind> kinds;
    for (const Event& event : query.events(begin, begin + 60)) kinds.insert(event.kind);
    EXPECT_EQ(kinds,
              (std::multiset<EventKind>{EventKind::Start, EventKind::Stop, EventKind::Tuned}));
}

TEST(Recorder, StandsStillWhileAnotherRecordsInTheFolder) {
    TempFolder temp;
    const auto settings = Feed::settingsFor(temp.path() / "history", nullptr);
    Store first(settings);
    first.open(1000000);
    Recorder second(settings);
    second.put(Inputs::tuned(1000));
    second.start();
    second.stop();
    EXPECT_EQ(second.status().state, StoreStatus::State::LookingOn);
}

}  // namespace
}  // namespace history::test
