// SPDX-License-Identifier: GPL-3.0-or-later
// Faults of a library in its process: the watch is asked, and nothing is lost.
#include <functional>

#include "tests/drivers/host/told_library.h"

namespace hm16::test {
namespace {

using namespace std::chrono_literals;
using Kind = HostTrouble::Kind;
using Next = HostWatch::Next;
using testing::HasSubstr;

// Each function, called as the program calls it.
struct Called {
    const char* name;
    std::function<std::int32_t(const ToldLibrary&)> call;
};

const std::vector<Called>& calledFunctions() {
    static const std::vector<Called> functions = {
        {"HM_Init", [](const ToldLibrary& t) { return t.call().init(); }},
        {"HM_Terminate", [](const ToldLibrary& t) { return t.call().terminate(); }},
        {"HM_DemoMode", [](const ToldLibrary& t) { return t.call().demoMode(); }},
        {"HM_Normal", [](const ToldLibrary& t) { return t.call().normal(985, 0, 0, 0, 0); }},
        {"HM_Parar", [](const ToldLibrary& t) { return t.call().parar(); }},
        {"HM_Reset", [](const ToldLibrary& t) { return t.call().reset(1); }},
        {"HM_Data",
         [](const ToldLibrary& t) {
             t.readings();
             return 18;
         }},
        {"HM_DataRDS",
         [](const ToldLibrary& t) {
             float a = 0, b = 0;
             return t.call().dataRds(&a, &b);
         }},
        {"HM_Super",
         [](const ToldLibrary& t) {
             float level = 0;
             return t.call().super(985, &level);
         }},
        {"HM_StartEspectro",
         [](const ToldLibrary& t) { return t.call().startEspectro(880, 1080, 25); }},
        {"HM_TramaEspectroRecibida",
         [](const ToldLibrary& t) { return t.call().tramaEspectroRecibida(); }},
        {"HM_GetEspectro",
         [](const ToldLibrary& t) {
             float level = 0;
             return t.call().getEspectro(985, &level);
         }},
        {"HM_RespFrecuencia",
         [](const ToldLibrary& t) {
             std::array<std::int32_t, 16> r{};
             return t.call().respFrecuencia(&r[0], &r[1], &r[2], &r[3], &r[4], &r[5], &r[6], &r[7],
                                            &r[8], &r[9], &r[10], &r[11], &r[12], &r[13], &r[14],
                                            &r[15]);
         }},
        {"HM_setSintoMode", [](const ToldLibrary& t) { return t.call().setSintoMode(0); }},
        {"HM_getHardwareVersion",
         [](const ToldLibrary& t) {
             float version = 0;
             return t.call().getHardwareVersion(&version);
         }},
        {"HM_getDriverVersion",
         [](const ToldLibrary& t) {
             float version = 0;
             return t.call().getDriverVersion(&version);
         }},
    };
    return functions;
}

class InEachFunction : public testing::TestWithParam<int> {
 protected:
    const Called& function() const {
        return calledFunctions()[static_cast<std::size_t>(GetParam())];
    }
};

TEST_P(InEachFunction, ACrashIsToldWithItsNameAndGoneWithout) {
    ToldLibrary told(std::string("crash ") + function().name);
    told.watch.answers.assign(3, Next::GoWithout);
    told.load();
    function().call(told);
    ASSERT_EQ(told.watch.troubles.size(), 1u);
    EXPECT_EQ(told.watch.troubles[0].kind, Kind::Crashed);
    EXPECT_EQ(told.watch.troubles[0].function, function().name);
    EXPECT_EQ(told.watch.troubles[0].how, "Segmentation fault");
    EXPECT_THAT(told.watch.troubles[0].journal,
                testing::ContainsRegex(std::string(function().name) + "\\(.*did not return\n$"));
    EXPECT_FALSE(told.library().runs());
    // Later calls do nothing, and nobody is asked again.
    told.call().parar();
    told.readings();
    EXPECT_EQ(told.watch.troubles.size(), 1u);
}

TEST_P(InEachFunction, ACrashThatDoesNotComeAgainLosesNothing) {
    const bool last = std::string(function().name) == "HM_Terminate";
    ToldLibrary told(std::string("crash ") + function().name + "\nonce");
    told.load();
    const std::int32_t result = function().call(told);
    EXPECT_EQ(told.watch.troubles.size(), 1u);
    EXPECT_EQ(told.library().runs(), !last);
    if (last) return;
    // The restarted library was given the call again.
    if (std::string(function().name) != "HM_Super") {
        EXPECT_NE(result, 0);
    }
    EXPECT_THAT(told.calls().back(), testing::StartsWith(function().name));
}

TEST_P(InEachFunction, AHangIsToldWithItsNameAndGoneWithout) {
    ToldLibrary told(std::string("hang ") + function().name);
    told.limits.call = 100ms;
    told.watch.answers.assign(3, Next::GoWithout);
    told.load();
    const pid_t id = told.library().processId();
    function().call(told);
    ASSERT_GE(told.watch.troubles.size(), 1u);
    EXPECT_EQ(told.watch.troubles[0].kind, Kind::Silent);
    EXPECT_EQ(told.watch.troubles[0].function, function().name);
    EXPECT_FALSE(told.library().runs());
    EXPECT_FALSE(lives(id));
}

INSTANTIATE_TEST_SUITE_P(HostedFaults, InEachFunction, testing::Range(0, 16),
                         [](const testing::TestParamInfo<int>& which) {
                             return std::string(
                                 calledFunctions()[static_cast<std::size_t>(which.param)].name);
                         });

TEST(HostedFaults, ALibraryThatStartsAnewIsWhereTheOneBeforeWas) {
    ToldLibrary told("crash HM_DataRDS\nonce");
    told.load();
    told.call().init();
    told.call().setSintoMode(0);
    told.call().parar();
    told.call().normal(1025.5f, 1, 0, 1, 1);
    told.forgetCalls();
    float error = 0, level = 4;
    EXPECT_EQ(told.call().dataRds(&error, &level), 19);
    EXPECT_EQ(error, -2.5f);
    EXPECT_THAT(told.calls(), ElementsAre("HM_DataRDS(4)", "HM_Init", "HM_setSintoMode(0)",
                                          "HM_Normal(1025.5, 1, 0, 1, 1)", "HM_DataRDS(4)"));
}

TEST(HostedFaults, ASweepGoesOnInALibraryThatStartsAnew) {
    ToldLibrary told("crash HM_GetEspectro\nonce");
    told.load();
    told.call().init();
    told.call().startEspectro(880, 1080, 25);
    told.forgetCalls();
    float level = 1;
    told.call().getEspectro(900, &level);
    EXPECT_EQ(level, 2);
    EXPECT_THAT(told.calls(),
                ElementsAre("HM_GetEspectro(900)", "HM_Init", "HM_StartEspectro(880, 1080, 25)",
                            "HM_GetEspectro(900)"));
}

TEST(HostedFaults, WhatEndsMeasuringIsNotPrecededByMeasuring) {
    ToldLibrary told("crash HM_Parar\nonce");
    told.load();
    told.call().init();
    told.call().normal(985, 0, 0, 0, 0);
    told.forgetCalls();
    told.call().parar();
    EXPECT_THAT(told.calls(), ElementsAre("HM_Parar", "HM_Init", "HM_Parar"));
}

TEST(HostedFaults, ACrashThatComesAgainIsAskedAboutAgain) {
    ToldLibrary told("crash HM_Normal");
    told.watch.answers = {Next::StartAgain, Next::StartAgain, Next::GoWithout};
    told.load();
    told.call().init();
    EXPECT_EQ(told.call().normal(985, 0, 0, 0, 0), 0);
    EXPECT_EQ(told.watch.troubles.size(), 3u);
    EXPECT_FALSE(told.library().runs());
}

TEST(HostedFaults, ALibraryThatIsNotThereAnyMoreIsToldSo) {
    ToldLibrary told("crash HM_Parar");
    told.load();
    std::filesystem::remove(told.folder.path() / libraryName());
    told.watch.answers = {Next::StartAgain, Next::GoWithout};
    told.call().parar();
    ASSERT_EQ(told.watch.troubles.size(), 2u);
    EXPECT_EQ(told.watch.troubles[1].kind, Kind::NotLoaded);
    EXPECT_EQ(told.watch.troubles[1].refusal, Refusal::NoFile);
}

TEST(HostedFaults, AnEndOfItsOwnIsACrashToo) {
    ToldLibrary told("exit HM_Normal");
    told.watch.answers = {Next::GoWithout};
    told.load();
    told.call().normal(985, 0, 0, 0, 0);
    ASSERT_EQ(told.watch.troubles.size(), 1u);
    EXPECT_EQ(told.watch.troubles[0].kind, Kind::Crashed);
    EXPECT_EQ(told.watch.troubles[0].function, "HM_Normal");
    EXPECT_EQ(told.watch.troubles[0].how, "it ended itself with 3");
}

TEST(HostedFaults, ACrashOfItsOwnThreadBetweenTwoCallsIsNoFunctions) {
    ToldLibrary told("thread HM_Init");
    told.watch.answers = {Next::GoWithout};
    told.load();
    const pid_t id = told.library().processId();
    told.call().init();
    ASSERT_TRUE(comes([&] { return !lives(id); }));
    told.call().parar();
    ASSERT_EQ(told.watch.troubles.size(), 1u);
    EXPECT_EQ(told.watch.troubles[0].kind, Kind::Crashed);
    EXPECT_EQ(told.watch.troubles[0].function, "");
}

TEST(HostedFaults, ASlowCallIsWaitedForAndMadeOnce) {
    ToldLibrary told("slow HM_Super 600");
    told.limits.call = 100ms;
    told.watch.waits = true;
    told.load();
    float level = 0;
    EXPECT_EQ(told.call().super(985, &level), 0);
    EXPECT_EQ(level, 98.5f);
    ASSERT_EQ(told.watch.troubles.size(), 1u);
    EXPECT_EQ(told.watch.troubles[0].kind, Kind::Silent);
    EXPECT_THAT(told.calls(), ElementsAre("HM_Super(985)"));
}

TEST(HostedFaults, ACallThatComesBackInTimeAsksNobody) {
    ToldLibrary told("slow HM_Super 200");
    told.load();
    float level = 0;
    EXPECT_EQ(told.call().super(985, &level), 0);
    EXPECT_TRUE(told.watch.troubles.empty());
}

TEST(HostedFaults, AHangThatIsStartedAgainIsCalledAgain) {
    ToldLibrary told("hang HM_Normal 0\nonce");
    told.limits.call = 1000ms;
    told.load();
    told.call().init();
    EXPECT_EQ(told.call().normal(985, 0, 0, 0, 0), 15);
    EXPECT_EQ(told.watch.troubles.size(), 1u);
}

TEST(HostedFaults, WithoutTheLibraryOutputsStayAndAMeasuringFails) {
    ToldLibrary told("crash HM_Super");
    told.watch.answers.assign(9, Next::GoWithout);
    told.load();
    float level = 42;
    EXPECT_NE(told.call().super(985, &level), 0);
    EXPECT_EQ(level, 42);
    EXPECT_NE(told.call().super(986, &level), 0);
    EXPECT_EQ(told.call().tramaEspectroRecibida(), 0);
    EXPECT_EQ(told.readings()[0], 1);
    float version = 0;
    told.call().getHardwareVersion(&version);
    EXPECT_EQ(version, 0);
}

TEST(HostedFaults, TheNextTuningOffersToStartItAgain) {
    ToldLibrary told("crash HM_Super\nonce");
    told.limits.answer = 0ms;
    told.load();
    told.call().init();
    float level = 0;
    told.watch.answers = {Next::GoWithout, Next::GoWithout, Next::StartAgain};
    told.call().super(985, &level);
    told.call().parar();
    EXPECT_EQ(told.watch.troubles.size(), 1u);
    told.call().normal(985, 0, 0, 0, 0);
    EXPECT_EQ(told.watch.troubles.back().kind, Kind::Left);
    EXPECT_FALSE(told.library().runs());
    told.forgetCalls();
    EXPECT_EQ(told.call().normal(990, 0, 0, 0, 0), 15);
    EXPECT_TRUE(told.library().runs());
    EXPECT_THAT(told.calls(), ElementsAre("HM_Init", "HM_Normal(990, 0, 0, 0, 0)"));
}

TEST(HostedFaults, TheAnswerHoldsForWhatFollowsFromIt) {
    ToldLibrary told("crash HM_Super");
    told.load();
    told.watch.answers = {Next::GoWithout};
    float level = 0;
    told.call().super(985, &level);
    told.call().parar();
    told.call().normal(985, 0, 0, 0, 0);
    EXPECT_EQ(told.watch.troubles.size(), 1u);
}

TEST(HostedFaults, AnExceptionOfTheWatchEndsTheLibrary) {
    ToldLibrary told("hang HM_Normal");
    told.limits.call = 100ms;
    told.watch.leaves = true;
    told.load();
    const pid_t id = told.library().processId();
    EXPECT_THROW(told.call().normal(985, 0, 0, 0, 0), std::runtime_error);
    EXPECT_FALSE(lives(id));
    // A call during unwinding does nothing.
    EXPECT_EQ(told.call().parar(), 0);
    EXPECT_EQ(told.watch.troubles.size(), 1u);
}

TEST(HostedFaults, WithoutAWatchTheProgramGoesOn) {
    ToldLibrary told("crash HM_Init");
    told.load();
    told.library().watchedBy(nullptr);
    EXPECT_EQ(told.call().init(), 0);
    EXPECT_FALSE(told.library().runs());
}

}  // namespace
}  // namespace hm16::test
