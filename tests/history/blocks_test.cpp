// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "history/crc.h"
#include "history/packed.h"
#include "history/second_block.h"
#include "history/span_block.h"
#include "tests/history/feed.h"

namespace history::test {
namespace {

FigureColumns registryColumns() {
    FigureColumns columns;
    int id = 0;
    for (const figures::Figure& figure : figures::all()) {
        columns.add({++id, figure.key, figure.unit, figure.kind, stepOf(figure), std::nullopt});
    }
    return columns;
}

/// A minute in which each figure takes values from its whole range, with all states.
std::vector<Second> wildMinute(std::int64_t minute, unsigned seed) {
    std::mt19937 random(seed);
    std::vector<Second> seconds;
    for (int s = 0; s < 60; ++s) {
        if (random() % 9 == 0) continue;
        Second second;
        second.t = minute + s;
        second.station = kStation;
        for (std::size_t i = 0; i < figureCount(); ++i) {
            const figures::Figure& figure = figures::all()[i];
            FigureSecond& one = second.figures[i];
            one.state = static_cast<State>(random() % 3 ? 0 : random() % kFileStates);
            one.knownMs = static_cast<std::uint16_t>(
                one.state == State::Known ? 1000 : random() % 2 * (random() % 1000));
            if (one.knownMs == 0) continue;
            const double share = static_cast<double>(random()) / 4294967296.0;
            const double low = static_cast<double>(figure.range.lowest);
            const double high = static_cast<double>(figure.range.highest);
            const double steps =
                static_cast<double>(stepsOf(low + share * (high - low), stepOf(figure)));
            one.value = static_cast<float>(steps * stepOf(figure));
        }
        seconds.push_back(second);
    }
    return seconds;
}

bool equal(const FigureSecond& a, const FigureSecond& b) {
    return a.value == b.value && a.knownMs == b.knownMs && a.state == b.state;
}

TEST(Crc, IsTheOneOfZipFiles) {
    EXPECT_EQ(crc32Of("123456789"), 0xCBF43926u);
    EXPECT_EQ(crc32Of(""), 0u);
}

TEST(Packed, NumbersComeBack) {
    for (const std::int64_t number :
         {std::int64_t{0}, std::int64_t{-1}, std::int64_t{63}, std::int64_t{-64}, std::int64_t{64},
          std::int64_t{300000}, std::int64_t{-1} << 60}) {
        std::string bytes;
        packSigned(bytes, number);
        Unpacker from(bytes);
        EXPECT_EQ(from.takeSigned(), number);
        EXPECT_TRUE(from.atEnd());
    }
    std::string small;
    packSigned(small, -64);
    EXPECT_EQ(small.size(), 1u);
}

TEST(Packed, NothingIsReadBehindTheEndOrTooLong) {
    Unpacker cut("\x80");
    EXPECT_EQ(cut.takeUnsigned(), 0u);
    EXPECT_TRUE(cut.failed());
    Unpacker longer(std::string_view("\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x01", 10));
    longer.takeUnsigned();
    EXPECT_TRUE(longer.failed());
    Unpacker few("abc");
    EXPECT_EQ(few.takeBytes(4), "");
    EXPECT_TRUE(few.failed());
}

TEST(SecondBlocks, BringBackEverySecondOfEachFigure) {
    const FigureColumns columns = registryColumns();
    for (unsigned seed = 1; seed <= 20; ++seed) {
        const auto before = wildMinute(1200000000, seed);
        const std::string data = packSeconds(before, columns);
        const auto block = SecondBlock::open(data);
        ASSERT_TRUE(block);
        const auto after = secondsOf(*block, columns, kStation, 1200000000, 0);
        ASSERT_EQ(after.size(), before.size());
        for (std::size_t s = 0; s < after.size(); ++s) {
            EXPECT_EQ(after[s].t, before[s].t);
            for (std::size_t i = 0; i < figureCount(); ++i) {
                EXPECT_TRUE(equal(after[s].figures[i], before[s].figures[i])) << s << ' ' << i;
            }
        }
    }
}

TEST(SecondBlocks, CutAtEachLengthAreNoBlocks) {
    const std::string data = packSeconds(wildMinute(0, 5), registryColumns());
    for (std::size_t size = 0; size < data.size(); ++size) {
        EXPECT_FALSE(SecondBlock::open(std::string_view(data).substr(0, size))) << size;
    }
    EXPECT_FALSE(SecondBlock::open(data + "x"));
}

TEST(SecondBlocks, ADamagedColumnIsAGapAndTheOthersStand) {
    const FigureColumns columns = registryColumns();
    Second second;
    for (FigureSecond& figure : second.figures) figure = {2, 1000, State::Known};
    std::string data = packSeconds(std::span(&second, 1), columns);
    // The last byte now says that the number continues.
    data.back() = static_cast<char>(0x80);
    const auto block = SecondBlock::open(data);
    ASSERT_TRUE(block);
    std::array<FigureSecond, 60> column;
    EXPECT_FALSE(block->column(columns.all().back(), column));
    EXPECT_EQ(column[0].state, State::Gap);
    EXPECT_EQ(column[0].knownMs, 0);
    EXPECT_TRUE(block->column(columns.all().front(), column));
    EXPECT_EQ(column[0].value, 2);
}

TEST(SecondBlocks, AFigureThatIsNotThereIsNotMeasured) {
    Second second;
    second.figures[indexOf("field")] = {60, 1000, State::Known};
    const FigureColumns columns = registryColumns();
    const std::string data = packSeconds(std::span(&second, 1), columns);
    EXPECT_LT(data.size(), 16u);
    std::array<FigureSecond, 60> column;
    EXPECT_TRUE(SecondBlock::open(data)->column(*columns.byKey("level_sum"), column));
    EXPECT_EQ(column[0].state, State::NotMeasured);
}

TEST(SpanBlocks, BringBackEveryFigure) {
    const FigureColumns columns = registryColumns();
    const auto seconds = wildMinute(0, 9);
    Span before;
    before.seconds = 90000;
    std::vector<FigureSecond> column(seconds.size());
    for (std::size_t i = 0; i < figureCount(); ++i) {
        for (std::size_t s = 0; s < seconds.size(); ++s) column[s] = seconds[s].figures[i];
        before.figures[i] = spanOf(figures::all()[i].kind, column);
    }
    const std::string data = packSpan(before, columns);
    const auto block = SpanBlock::open(data);
    ASSERT_TRUE(block);
    EXPECT_EQ(block->seconds(), 90000);
    for (std::size_t i = 0; i < figureCount(); ++i) {
        const auto after = block->figure(columns.all()[i]);
        ASSERT_TRUE(after);
        EXPECT_EQ(after->lowest, before.figures[i].lowest);
        EXPECT_EQ(after->mean, before.figures[i].mean);
        EXPECT_EQ(after->highest, before.figures[i].highest);
        EXPECT_EQ(after->percentile1, before.figures[i].percentile1);
        EXPECT_EQ(after->percentile99, before.figures[i].percentile99);
        EXPECT_EQ(after->knownMs, before.figures[i].knownMs);
        EXPECT_EQ(after->causes, before.figures[i].causes);
    }
}

TEST(SpanBlocks, CutAtEachLengthAreNoBlocks) {
    Span span;
    span.seconds = 60;
    span.figures[0].knownMs = 60000;
    const std::string data = packSpan(span, registryColumns());
    for (std::size_t size = 0; size < data.size(); ++size) {
        EXPECT_FALSE(SpanBlock::open(std::string_view(data).substr(0, size))) << size;
    }
}

TEST(FigureColumns, PassOverWhatNoFileOfOursHas) {
    FigureColumns columns;
    columns.add({1, "field", "dB", figures::Kind::Level, 0.01, std::nullopt});
    columns.add({1, "other", "", figures::Kind::Mean, 1, std::nullopt});
    columns.add({2, "field", "", figures::Kind::Mean, 1, std::nullopt});
    columns.add({3, "zero", "", figures::Kind::Mean, 0, std::nullopt});
    columns.add({4, "from_tomorrow", "", figures::Kind::Mean, 1, std::nullopt});
    EXPECT_EQ(columns.all().size(), 2u);
    EXPECT_EQ(columns.of(indexOf("field"))->id, 1);
    EXPECT_FALSE(columns.byKey("from_tomorrow")->index);
}

}  // namespace
}  // namespace history::test
