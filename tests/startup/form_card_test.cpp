// SPDX-License-Identifier: GPL-3.0-or-later
#include "startup/form_card.h"

#include <gtest/gtest.h>

#include "panels/audio/form_b.h"
#include "panels/modulation/form1.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

struct Card : testing::Test {
    explicit Card(int language = RackBench::kEnglish) : bench(language) {
        bench.program.FirstStart = {true, [this] { ++read; }};
        bench.start();
    }
    RackBench bench;
    FormCard& card = bench.forms.formCard;
    int read = 0;
};

TEST_F(Card, StandsOverTheRackAtTheFirstStart) {
    ASSERT_TRUE(card.visible);
    EXPECT_GE(card.left, bench.form1.left);
    EXPECT_LE(card.left + card.width, bench.form1.left + bench.form1.width);
    const display::Form& foot = *bench.program.rack.back();
    EXPECT_LE(card.top + card.height, foot.top + foot.height);
    EXPECT_TRUE(card.Line[0].caption.get().starts_with("Keys: 1 to 9 and 0"));
    EXPECT_TRUE(card.Line[1].caption.get().starts_with("Help: F1"));
    EXPECT_TRUE(card.Line[2].caption.get().starts_with("Files: "));
}

TEST_F(Card, StopsNothing) {
    for (const display::Form* panel : bench.program.rack) EXPECT_TRUE(panel->enabled);
    const int before = bench.driver.dataCalls;
    bench.beat(10);
    EXPECT_GE(bench.driver.dataCalls - before, 10);
    bench.click(bench.formB.SSCommand1);
    EXPECT_EQ(bench.formB.MemoryNumber, 3);
    EXPECT_TRUE(card.visible);
}

TEST_F(Card, GoesForGoodByAClickAnywhereOnIt) {
    bench.hand.mouseDown(card.Faceplate, display::Mouse{100, 100, true});
    bench.settle();
    EXPECT_FALSE(card.loaded());
    EXPECT_EQ(read, 1);
}

TEST_F(Card, GoesByItsKeyByEscapeAndByItsWindowsClose) {
    bench.click(card.KeyRead);
    EXPECT_FALSE(card.loaded());
    card.show();
    bench.hand.escape(card);
    bench.settle();
    EXPECT_FALSE(card.loaded());
    card.show();
    bench.hand.close(card);
    bench.settle();
    EXPECT_FALSE(card.loaded());
    EXPECT_EQ(read, 3);
}

TEST(CardLater, IsNotShownAgain) {
    RackBench bench;
    bench.start();
    EXPECT_FALSE(bench.forms.formCard.loaded());
}

struct SpanishCard : Card {
    SpanishCard() : Card(RackBench::kSpanish) {}
};

TEST_F(SpanishCard, SpeaksSpanish) {
    EXPECT_EQ(card.Heading.caption, "Para empezar");
    EXPECT_TRUE(card.Line[1].caption.get().starts_with("Ayuda: F1"));
}

}  // namespace
}  // namespace hmonitor::test
