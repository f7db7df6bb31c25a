// SPDX-License-Identifier: GPL-3.0-or-later
// The signs in the heads of the four panels while the figures below are not being measured.
#include <gtest/gtest.h>

#include <string>

#include "tests/panels/modulation/demo_start.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using namespace std::chrono_literals;

/// A rack tuned to a station whose unit sends the same readings again and again.
class Signs : public testing::TestWithParam<int> {
 protected:
    Signs() {
        const float ordinary[] = {80,  -10, -12, 45,   2.5f, 1.5f, 9.5f, -60,
                                  -61, 40,  41,  0.5f, 12,   60,   12,   7};
        for (int i = 1; i <= 16; ++i) bench.output(i) = ordinary[i - 1];
        bench.readings.rdsLevel = 4.2f;
    }
    bool spanish() const { return GetParam() == RackBench::kSpanish; }
    std::string noData(int seconds) const {
        return (spanish() ? "SIN DATOS " : "NO DATA ") + std::to_string(seconds) + " s";
    }
    /// The text of the sign; "?" if the four heads differ.
    std::string sign() {
        const std::string text = told(bench.form1.sign);
        for (PanelSign* other : {&bench.formB.sign, &bench.formC.sign, &bench.formD.sign}) {
            if (told(*other) != text) return "?";
        }
        return text;
    }
    /// True if every veil covers its well, false if all are hidden.
    bool dimmed() {
        int veils = 0;
        int shown = 0;
        for (PanelSign* panel : {&bench.form1.sign, &bench.formB.sign, &bench.formC.sign}) {
            for (display::Panel& veil : panel->veils) {
                ++veils;
                shown += veil.visible ? 1 : 0;
            }
        }
        EXPECT_EQ(veils, 26);
        EXPECT_TRUE(shown == 0 || shown == veils) << shown;
        return shown == veils;
    }

    RackBench bench{GetParam()};

 private:
    static std::string told(PanelSign& panel) {
        EXPECT_EQ(panel.words.visible.get(), !panel.words.caption.empty());
        return std::string(panel.words.caption.get());
    }
};

TEST_P(Signs, SayNoDataAfterThreeSecondsOfTheSameWithTheSecondsAndDimTheWells) {
    bench.start();
    bench.advance(2900ms);
    EXPECT_EQ(sign(), "");
    EXPECT_FALSE(dimmed());
    bench.advance(400ms);
    EXPECT_EQ(sign(), noData(3));
    EXPECT_TRUE(dimmed());
    bench.advance(60s);
    EXPECT_EQ(sign(), noData(63));
}

TEST_P(Signs, GoWithTheFirstChange) {
    bench.start();
    bench.advance(5s);
    ASSERT_EQ(sign(), noData(4));
    bench.readings.noiseRight -= 0.1f;
    bench.advance(200ms);
    EXPECT_EQ(sign(), "");
    EXPECT_FALSE(dimmed());
    bench.advance(5s);
    bench.readings.rdsError += 0.1f;
    bench.advance(200ms);
    EXPECT_EQ(sign(), "");
}

TEST_P(Signs, NeverComeOnAnEmptyChannel) {
    for (int i = 1; i <= 16; ++i) bench.output(i) = 0;
    bench.readings.levelFirst = bench.readings.levelSecond = -64;
    bench.readings.stereoPhase = 45;
    bench.readings.rdsLevel = 0;
    bench.start();
    for (const float field : {0.f, 11.f}) {
        bench.readings.field = field;
        for (int second = 0; second < 60; ++second) {
            bench.advance(1s);
            ASSERT_EQ(sign(), "") << field;
        }
    }
}

TEST_P(Signs, StartAnewWithATuningAndStayAwayWhileTheUnitDoesSomethingElse) {
    bench.start();
    bench.advance(10s);
    ASSERT_NE(sign(), "");
    bench.set(bench.formB.HScroll1, 50);
    bench.advance(1s);
    EXPECT_EQ(sign(), "");
    // While an analysis has the unit, readings that stand still are no fault.
    bench.driver.frames = {};
    bench.click(bench.formD.Image2);
    bench.click(bench.forms.formBandSCanner.Command3D1);
    bench.advance(30s);
    EXPECT_EQ(sign(), "");
}

TEST_P(Signs, TouchNoControlThatTheInstrumentHas) {
    bench.start();
    bench.advance(12s);  // the mean of the carrier has settled
    bench.readings.rdsError += 0.1f;
    bench.advance(200ms);
    ASSERT_EQ(sign(), "");
    const auto captions = [this] {
        std::string all;
        for (const display::Form* panel : bench.program.rack) {
            for (display::Control* control : panel->controls()) {
                if (auto* label = dynamic_cast<display::Label*>(control)) {
                    all += label->caption.get();
                    all += label->visible ? '+' : '-';
                    all += std::to_string(label->colour.get().bgr) + ';';
                }
            }
        }
        return all;
    };
    const std::string live = captions();
    bench.advance(4s);
    ASSERT_NE(sign(), "");
    EXPECT_EQ(captions(), live);
}

TEST_P(Signs, SayDemoWhereTheFiguresAreMadeUpAndDimNothing) {
    startInDemoMode(bench);
    bench.advance(200ms);
    EXPECT_EQ(sign(), "DEMO");
    EXPECT_FALSE(dimmed());
    bench.advance(10s);
    EXPECT_EQ(sign(), "DEMO");
    EXPECT_FALSE(dimmed());
}

TEST_P(Signs, InDemoModeTheKeysThatNeedAUnitSaySo) {
    startInDemoMode(bench);
    const auto tip = [this](display::Form& form, display::Key& key) {
        form.load();
        return std::string(spanish() ? key.tip.spanish : key.tip.english);
    };
    Forms& forms = bench.forms;
    const std::string words = spanish() ? "modo demo" : "demo mode";
    EXPECT_NE(tip(forms.formBandSCanner, forms.formBandSCanner.Command3D1).find(words),
              std::string::npos);
    EXPECT_NE(tip(forms.formD1a, forms.formD1a.Command3D1).find(words), std::string::npos);
    EXPECT_NE(tip(forms.formNewSpectro, forms.formNewSpectro.Command3D1).find(words),
              std::string::npos);
}

TEST_P(Signs, WithAUnitNoKeySpeaksOfTheDemo) {
    bench.start();
    for (display::Form* form : bench.desktop.forms()) {
        form->load();
        for (const display::Control* control : form->controls()) {
            if (!control->interactive()) continue;
            EXPECT_EQ(std::string(control->tip.english).find("demo mode"), std::string::npos)
                << form->name() << "." << control->name();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, Signs,
                         testing::Values(RackBench::kSpanish, RackBench::kEnglish));

}  // namespace
}  // namespace hmonitor::test
