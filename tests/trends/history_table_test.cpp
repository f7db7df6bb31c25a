// SPDX-License-Identifier: GPL-3.0-or-later
#include "trends/history_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "tests/history/feed.h"
#include "trends/history_words.h"

namespace hmonitor::test {
namespace {

using display::Language;
using history::Band;
using history::State;
using history::test::indexOf;
using history::test::utc;
using history::test::Zone;
using testing::ElementsAre;

/// Three minutes of two figures: known, known in part, unknown.
HistoryView threeMinutes(std::int64_t begin) {
    HistoryView view;
    view.station = 98500;
    view.asked.figures = {indexOf("deviation_peak"), indexOf("multipath")};
    view.asked.range = {begin * 1000, (begin + 180) * 1000, 60'000};
    view.asked.nowMs = (begin + 180) * 1000;
    const std::vector<Band> bands = {{62.5f, 66.25f, 70, 60'000, State::Known},
                                     {61, 65, 69, 45'500, State::UnitAway},
                                     {0, 0, 0, 0, State::NoCarrier}};
    view.bands = {bands, bands};
    return view;
}

TEST(HistoryTables, HaveUnitsInTheirHeadsBothTimesAndAStateForEachFigure) {
    const Zone zone("<-03>3");
    const std::int64_t begin = utc(2026, 11, 21, 17, 30);
    const auto table = historyTable(threeMinutes(begin), begin * 1000, (begin + 180) * 1000,
                                    "UNO 98.5 MHz 2026-11-21", Language::English);
    const std::string csv = display::csvText(table);
    EXPECT_TRUE(csv.starts_with(
        "Time (UTC),Local time,Peak deviation: mean (kHz),Peak deviation: lowest (kHz),"
        "Peak deviation: highest (kHz),Peak deviation: known time (s),Peak deviation: state,"
        "Multipath: mean"))
        << csv;
    ASSERT_EQ(table.rows.size(), 3u);
    EXPECT_EQ(table.rows[0][0], "2026-11-21T17:30:00Z");
    EXPECT_EQ(table.rows[0][1], "2026-11-21T14:30:00-03:00");
    const auto firstFigure = [&](std::size_t row) {
        return std::vector<std::string>(table.rows[row].begin() + 2, table.rows[row].begin() + 7);
    };
    EXPECT_THAT(firstFigure(0), ElementsAre("66.25", "62.5", "70", "60", "known"));
    EXPECT_THAT(firstFigure(1), ElementsAre("65", "61", "69", "45.5", "unit away"));
    EXPECT_THAT(firstFigure(2), ElementsAre("", "", "", "0", "no carrier"));
    for (const auto& row : table.rows) EXPECT_EQ(row.size(), table.columns.size());
}

TEST(HistoryTables, HaveTheRowsThatAreInView) {
    const Zone zone("UTC");
    const std::int64_t begin = utc(2026, 11, 21, 17, 30);
    const auto table = historyTable(threeMinutes(begin), (begin + 70) * 1000, (begin + 119) * 1000,
                                    "", Language::Spanish);
    ASSERT_EQ(table.rows.size(), 1u);
    EXPECT_EQ(table.rows[0][0], "2026-11-21T17:31:00Z");
    EXPECT_EQ(table.rows[0][1], "2026-11-21T17:31:00+00:00");
    EXPECT_EQ(table.rows[0][6], "unidad ocupada");
    EXPECT_EQ(table.columns[2].name, "Pico de desviación: media");
    EXPECT_EQ(table.title, "Historial");
}

TEST(HistoryTables, OfNothingHaveNoRow) {
    EXPECT_TRUE(historyTable({}, 0, 1000, "", Language::English).rows.empty());
}

TEST(HistoryWords, EveryCauseHasWordsAndAColourOfItsOwn) {
    std::set<std::string_view> words;
    std::set<std::uint32_t> colours;
    for (int cause = 1; cause <= 13; ++cause) {
        const auto state = static_cast<State>(cause);
        for (const Language language : {Language::Spanish, Language::English})
            EXPECT_FALSE(causeWords(state, language).empty()) << cause;
        words.insert(causeWords(state, Language::English));
        colours.insert(causeColour(state).bgr);
    }
    EXPECT_EQ(words.size(), 13u);
    EXPECT_EQ(colours.size(), 13u);
}

TEST(HistoryWords, EveryEventSaysWhatHappenedAndWhatItKnowsOfIt) {
    for (int kind = 1; kind <= static_cast<int>(history::kLastEventKind); ++kind) {
        const history::Event event{0, 0, static_cast<history::EventKind>(kind), "-3600 s"};
        const std::string words = eventWords(event, Language::English);
        EXPECT_GT(words.size(), std::string(": -3600 s").size()) << kind;
        EXPECT_TRUE(words.ends_with(": -3600 s")) << kind;
    }
}

TEST(HistoryWords, LengthsAreInTheirTwoLargestUnits) {
    EXPECT_EQ(lengthText(34'900), "34 s");
    EXPECT_EQ(lengthText(-65'000), "1 min 05 s");
    EXPECT_EQ(lengthText(7'500'000), "2 h 05 min");
    EXPECT_EQ(lengthText(36 * 3'600'000), "36 h");
    EXPECT_EQ(lengthText(12 * kDayMs + 3 * 3'600'000), "12 d 03 h");
}

TEST(HistoryViews, TheKnownShareIsThatOfTheTimeInView) {
    const std::int64_t begin = utc(2026, 11, 21, 17, 30);
    const HistoryView view = threeMinutes(begin);
    const std::int64_t from = begin * 1000;
    EXPECT_NEAR(view.knownShare(from, from + 180'000), (60 + 45.5) / 180, 1e-6);
    EXPECT_NEAR(view.knownShare(from, from + 60'000), 1, 1e-9);
    EXPECT_NEAR(view.knownShare(from + 90'000, from + 150'000), 45.5 / 120, 1e-6);
    EXPECT_EQ(view.knownShare(from + 180'000, from + 200'000), 0);
    EXPECT_EQ(HistoryView{}.knownShare(0, 1000), 0);
}

TEST(HistoryViews, AMomentHasItsColumn) {
    const std::int64_t begin = utc(2026, 11, 21, 17, 30);
    const HistoryView view = threeMinutes(begin);
    EXPECT_EQ(view.columnAt(begin * 1000 + 60'000), 1u);
    EXPECT_EQ(view.columnAt(begin * 1000 + 59'999), 0u);
    EXPECT_FALSE(view.columnAt(begin * 1000 - 1));
    EXPECT_FALSE(view.columnAt(begin * 1000 + 180'000));
}

}  // namespace
}  // namespace hmonitor::test
