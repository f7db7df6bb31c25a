// SPDX-License-Identifier: GPL-3.0-or-later
// Tunings in every order of keys while the timers run: what must hold after each of them.
#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

#include "core/numbers.h"
#include "core/text_lines.h"
#include "tests/panels/rack/rack_view.h"
#include "tests/support/random_readings.h"

namespace hmonitor::test {
namespace {

using std::chrono::milliseconds;

class KeyOrders : public testing::Test {
 protected:
    static constexpr int kKeys = 10;

    void SetUp() override {
        // Stations in the middle of the band, so that each key tunes to another place.
        bench.write("halden.dat",
                    memoryBlock({{1, "UNO", "981"}, {3, "TRES", "10255"}, {16, "FIN", "9355"}}));
        bench.start();
        for (const char* name : {"0981.dat", "1025.5.dat", "0982.dat"}) {
            bench.write(name, lines(std::vector<std::string>(24, "33")));
        }
        bench.driver.noteData = true;
        bench.driver.duringNormal = [this] {
            ++tunings;
            EXPECT_EQ(bench.driver.calls.back().substr(0, 9), "HM_Normal");
            ASSERT_GE(bench.driver.calls.size(), 2u);
            EXPECT_EQ(*(bench.driver.calls.end() - 2), "HM_Parar");
            EXPECT_FALSE(bench.form1.Timer1.enabled || bench.form1.Timer4.enabled ||
                         bench.formB.Timer2.enabled || bench.formB.Timer3.enabled);
        };
    }

    void press(int key) {
        Form_B& audio = bench.formB;
        switch (key) {
            case 0:
                return bench.hand.click(audio.SSCommand1);
            case 1:
                return bench.hand.scroll(audio.HScroll1, 1);
            case 2:
                return enterOnKeypad("10255");
            case 3:
                return bench.hand.click(bench.formC.Image_Reset1);
            case 4:
                return bench.hand.click(audio.Image2);
            case 5:
                return bench.hand.click(audio.SSCommand2);
            case 6:
                return bench.hand.click(bench.formC.Image2);
            case 7:
                return bench.hand.click(bench.formC.Image3);
            case 8:
                return bench.hand.click(audio.Image1);
            default:
                return bench.hand.page(audio.HScroll1, -1);
        }
    }

    void enterOnKeypad(const std::string& typed) {
        bench.click(bench.formB.Image4);
        auto& keypad = bench.forms.formTuner;
        keypad.Text1.edit(typed);
        bench.click(keypad.SSCommand10);
        bench.hand.click(keypad.SSCommand12);
    }

    /// Presses the key, then waits for three heartbeats: the slow timers are in the middle of their
    /// intervals.
    void pressAndCheck(int key) {
        SCOPED_TRACE("key " + std::to_string(key));
        bench.driver.calls.clear();
        bench.desktop.journal.clear();
        random.put(bench.driver.readings);
        const int before = tunings;
        press(key);
        bench.desktop.settle();
        EXPECT_GT(tunings, before);
        bench.advance(milliseconds(130));
        expectWhole();
    }

    void expectWhole() {
        Form_B& audio = bench.formB;
        EXPECT_TRUE(bench.form1.Timer1.enabled && bench.form1.Timer4.enabled &&
                    audio.Timer2.enabled && audio.Timer3.enabled);
        EXPECT_TRUE(bench.form1.enabled && audio.enabled && bench.formC.enabled &&
                    bench.formD.enabled);
        // Unit, panel and bar agree on the frequency.
        const std::string frequency = shortText(audio.TunedFreq).str();
        EXPECT_EQ(bench.state.CurrentFreq, frequency);
        EXPECT_EQ(audio.Label_FrecRadio.caption, mask("0.00", audio.TunedFreq / 10).view());
        const double half = bench.state.HalfStep == "5" ? 0.5 : 0;
        EXPECT_EQ(audio.TunedFreq, audio.HScroll1.value + 875 + half);
        const auto normal = std::ranges::find_if(
            bench.driver.calls.rbegin(), bench.driver.calls.rend(),
            [](const std::string& call) { return call.starts_with("HM_Normal("); });
        ASSERT_NE(normal, bench.driver.calls.rend());
        EXPECT_EQ(normal->substr(10, normal->find(',') - 10), frequency);
        expectMemory();
        expectFiles();
        const bool measured = bench.exists(frequencyFileName(audio.TunedFreq, ".dat").view());
        EXPECT_EQ(bench.state.FloorNoiseL, measured ? "33" : "xx");
        EXPECT_EQ(bench.state.FloorThd, measured ? "3300" : "0");
        for (const auto& [place, shown] : view.all()) {
            EXPECT_EQ(shown.find('?'), std::string::npos) << place << " " << shown;
        }
    }

    void expectMemory() {
        Form_B& audio = bench.formB;
        const bool off = audio.MemoryState == "cero";
        EXPECT_EQ(audio.OffMemory, off ? 1 : 0);
        EXPECT_EQ(audio.memoryUnits.figure().has_value(), !off);
        EXPECT_EQ(audio.RadioName.empty(), off);
        EXPECT_EQ(audio.Label_RadioName.caption, audio.RadioName.view());
        EXPECT_EQ(audio.ButtonTune == "1", false);
    }

    void expectFiles() {
        const bool sum = bench.formB.Image2.picture == "LRA";
        EXPECT_EQ(bench.formB.Image1.picture == "LyRA", !sum);
        const std::string number = sum ? "1" : "0";
        EXPECT_EQ(bench.read("hm-16.dat"), lines({"1", "0", "0", "1", "0", "0", number, "0"}));
        EXPECT_EQ(bench.read("Hm-res.dat"), lines({"0", "0", "0"}));
        EXPECT_FALSE(bench.desktop.ended());
        EXPECT_TRUE(bench.desktop.boxes.empty());
    }

    RackBench bench;
    RackView view{bench};
    RandomReadings random;
    int tunings = 0;
};

/// All orders that begin with one of the five kinds: memory, bar, keypad, reset, mode.
class AllKeyOrders : public KeyOrders, public testing::WithParamInterface<int> {};

TEST_P(AllKeyOrders, OfTheFiveKindsOfTuningHold) {
    std::vector<int> behind;
    for (int key = 0; key < 5; ++key) {
        if (key != GetParam()) behind.push_back(key);
    }
    int orders = 0;
    do {
        pressAndCheck(GetParam());
        for (const int key : behind) pressAndCheck(key);
        ++orders;
    } while (std::ranges::next_permutation(behind).found && !HasFailure());
    EXPECT_EQ(orders, 24);
}

INSTANTIATE_TEST_SUITE_P(First, AllKeyOrders, testing::Range(0, 5));

TEST_F(KeyOrders, EachKeyBehindEachOtherHolds) {
    for (int first = 0; first < kKeys; ++first) {
        for (int second = 0; second < kKeys && !HasFailure(); ++second) {
            pressAndCheck(first);
            pressAndCheck(second);
        }
    }
}

TEST_F(KeyOrders, KeysWithoutAPauseLeaveTheLastOnesTuning) {
    std::vector<int> order(kKeys);
    std::iota(order.begin(), order.end(), 0);
    for (int turn = 0; turn < 10 && !HasFailure(); ++turn) {
        std::rotate(order.begin(), order.begin() + 1, order.end());
        for (const int key : order) {
            press(key);
            bench.desktop.settle();
        }
        bench.advance(milliseconds(130));
        expectWhole();
    }
}

}  // namespace
}  // namespace hmonitor::test
