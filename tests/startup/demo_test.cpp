// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using testing::Contains;
using testing::ElementsAre;

/// A bench whose unit does not answer and whose user presses one of the offer's keys.
class Demo : public testing::Test {
 protected:
    void offer(RackBench& bench, bool accept) {
        bench.driver.hardwareVersion = 0;
        bench.desktop.modalScripts["FormModoDemo"] = [&bench, accept, this](display::Form&) {
            auto& form = bench.forms.formModoDemo;
            spanish = form.Label1.visible;
            english = form.Label2.visible;
            goOn = form.Command1.caption.get();
            leave = form.Command2.caption.get();
            words = (spanish ? form.Label1 : form.Label2).caption.get();
            bench.hand.click(accept ? form.Command1 : form.Command2);
        };
        bench.start();
    }

    bool spanish = false;
    bool english = false;
    std::string goOn, leave, words;
};

TEST_F(Demo, IsOfferedInEnglish) {
    RackBench bench;
    offer(bench, true);
    EXPECT_FALSE(spanish);
    EXPECT_TRUE(english);
    EXPECT_EQ(goOn, "Demo Mode");
    EXPECT_EQ(leave, "Exit");
    EXPECT_EQ(words,
              "HM16 unit is not present. Please check RS232 connection. Be sure to use the correct "
              "port #; see the Manual.");
}

TEST_F(Demo, IsOfferedInSpanish) {
    RackBench bench(RackBench::kSpanish);
    offer(bench, true);
    EXPECT_TRUE(spanish);
    EXPECT_FALSE(english);
    EXPECT_EQ(goOn, "Modo Demo");
    EXPECT_EQ(leave, "Salir");
    EXPECT_EQ(words,
              "El software no encuentra al HM-16. Revise las conexiones RS232 y asegurese de usar "
              "el port serie correcto (consulte al manual).");
}

TEST_F(Demo, OnAPortugueseSystemIsOfferedInEnglishUnderSpanishPanels) {
    RackBench bench(RackBench::kPortuguese);
    offer(bench, true);
    EXPECT_TRUE(english);
    EXPECT_EQ(bench.form1.Label_PeakPerMinute.caption, "Picos por Minuto");
}

TEST_F(Demo, AcceptedCallsTheDriverTwiceAndRunsWithoutTuningTheUnit) {
    RackBench bench;
    offer(bench, true);
    EXPECT_THAT(bench.driver.calls, ElementsAre("HM_Init", "HM_getHardwareVersion", "HM_DemoMode",
                                                "HM_DemoMode", "HM_setSintoMode(0)"));
    EXPECT_EQ(bench.state.DemoMode, "si");
    EXPECT_EQ(bench.state.HardwareVersion, "0");
    EXPECT_FALSE(bench.forms.formModoDemo.loaded());
    EXPECT_EQ(bench.formB.PanelStarted, 1);
}

TEST_F(Demo, RefusedTerminatesAndEndsWithoutAWord) {
    RackBench bench;
    offer(bench, false);
    EXPECT_TRUE(bench.desktop.ended());
    EXPECT_THAT(bench.driver.calls,
                ElementsAre("HM_Init", "HM_getHardwareVersion", "HM_Terminate"));
    EXPECT_TRUE(bench.desktop.boxes.empty());
    EXPECT_FALSE(bench.formB.loaded());
}

TEST_F(Demo, ClosingTheOffersWindowRefuses) {
    RackBench bench;
    bench.driver.hardwareVersion = 0;
    bench.desktop.modalScripts["FormModoDemo"] = [&bench](display::Form& form) {
        bench.hand.close(form);
    };
    bench.start();
    EXPECT_TRUE(bench.desktop.ended());
    EXPECT_THAT(bench.driver.calls, Contains("HM_Terminate"));
}

TEST_F(Demo, AVersionThatIsNoNumberCountsAsNoUnit) {
    RackBench bench;
    bench.driver.hardwareVersion = std::numeric_limits<float>::quiet_NaN();
    bench.desktop.modalScripts["FormModoDemo"] = [&bench](display::Form&) {
        bench.hand.click(bench.forms.formModoDemo.Command1);
    };
    bench.start();
    EXPECT_EQ(bench.state.DemoMode, "si");
}

/// The demo offer after the driver library could not be loaded.
class DemoFault : public Demo, public testing::WithParamInterface<int> {
 protected:
    void offerAfter(const LibraryFault& fault) {
        bench.program.LibraryFault = fault;
        bench.driver.hardwareVersion = 0;
        bench.desktop.modalScripts["FormModoDemo"] = [this](display::Form&) {
            auto& form = bench.forms.formModoDemo;
            shown = form.Reason.visible;
            reason = form.Reason.caption.get();
            below = form.Reason.top - form.Label1.top - form.Label1.height;
            height = form.height;
            keyBottom = form.Command1.top + form.Command1.height;
            reasonBottom = form.Reason.top + form.Reason.height;
            keyTop = form.Command1.top;
            bench.hand.click(form.Command1);
        };
        bench.start();
    }
    /// The reason without the marks at which a long path may be broken into lines.
    std::string plainReason() const {
        std::string text = reason;
        for (std::size_t at; (at = text.find("\u200b")) != std::string::npos;) text.erase(at, 3);
        return text;
    }

    RackBench bench{GetParam()};
    bool shown = false;
    std::string reason;
    float below = 0, height = 0, keyBottom = 0, keyTop = 0, reasonBottom = 0;
};

TEST_P(DemoFault, IsToldBelowTheWordsAndAboveTheKeys) {
    offerAfter({"No está la biblioteca de la unidad /opt/rack/hm-16.so.",
                "There is no driver library /opt/rack/hm-16.so."});
    EXPECT_TRUE(shown);
    EXPECT_EQ(plainReason(), GetParam() == RackBench::kSpanish
                                 ? "No está la biblioteca de la unidad /opt/rack/hm-16.so."
                                 : "There is no driver library /opt/rack/hm-16.so.");
    EXPECT_GE(below, 0);
    EXPECT_LE(reasonBottom, keyTop);
    EXPECT_LE(keyBottom, height);
    EXPECT_EQ(height, 2300);
}

TEST_P(DemoFault, IsNotSpokenOfWhereTheLibraryWasLoaded) {
    offerAfter({});
    EXPECT_FALSE(shown);
    EXPECT_EQ(height, 2300);
}

INSTANTIATE_TEST_SUITE_P(Languages, DemoFault,
                         testing::Values(RackBench::kSpanish, RackBench::kEnglish));

}  // namespace
}  // namespace hmonitor::test
