// SPDX-License-Identifier: GPL-3.0-or-later
// A live radio behind SoapySDR's interface, found when the unit opens. The radio is the fixture's;
// the library, the loader and the way in between are those of the program.
#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "tests/drivers/receiver/receiver_library.h"

namespace {

using testing::HasSubstr;

std::string radio(const std::string& arguments, const std::string& more = "") {
    return "source = soapy\nsoapy_library = " HM16_RADIO "\nsoapy_device = driver=fixture," +
           arguments + "\nrate_hz = 1200000\nlevel_step_db = 0\n" + more;
}

// What the fixture has open; it stays in memory for that.
class Fixture {
 public:
    Fixture() : handle_(dlopen(HM16_RADIO, RTLD_NOW | RTLD_LOCAL)) {}
    ~Fixture() { dlclose(handle_); }
    int devices() const { return count("fixture_open_devices"); }
    int streams() const { return count("fixture_open_streams"); }

 private:
    int count(const char* name) const {
        return reinterpret_cast<int (*)()>(dlsym(handle_, name))();
    }
    void* handle_;
};

bool measured(const ReceiverLibrary& receiver) {
    return ReceiverLibrary::eventually([&] {
        const auto now = receiver.readings();
        return std::fabs(now.pilotLevel - 9) < 0.05 && std::fabs(now.pilotError - 4) < 0.02 &&
               std::fabs(now.carrierDeviation - 2.52) < 0.1;
    });
}

TEST(Radio, ItsStationIsMeasured) {
    const Fixture fixture;
    {
        const ReceiverLibrary receiver(radio(""));
        EXPECT_EQ(receiver.init(), "");
        EXPECT_EQ(receiver.version(), 1.8F);
        EXPECT_EQ(fixture.devices(), 1);
        EXPECT_EQ(fixture.streams(), 1);
        receiver.tune(985);
        EXPECT_TRUE(measured(receiver));
        const auto now = receiver.readings();
        EXPECT_NEAR(now.field, 100 + 20 * std::log10(0.3), 0.2);
        EXPECT_NEAR(now.levelFirst, 20 * std::log10(0.5), 0.2);
        EXPECT_NEAR(now.levelSecond, 20 * std::log10(0.1), 0.2);
        EXPECT_FALSE(receiver.step(1));  // the air cannot be hurried
    }
    EXPECT_EQ(fixture.devices(), 0);
    EXPECT_EQ(fixture.streams(), 0);
}

TEST(Radio, ItIsTunedToWhatIsAsked) {
    const ReceiverLibrary receiver(radio(""));
    receiver.init();
    receiver.tune(1050);
    EXPECT_TRUE(ReceiverLibrary::eventually([&] { return receiver.readings().field > 0; }));
    EXPECT_LT(receiver.readings().field, 60);
    EXPECT_EQ(receiver.readings().pilotLevel, 0);
    receiver.tune(985);
    EXPECT_TRUE(measured(receiver));
    EXPECT_THAT(receiver.report(), HasSubstr("centre: 98.35 MHz"));
    receiver->parar();
    float level = 0;
    EXPECT_EQ(receiver->super(900, &level), 0);
    EXPECT_LT(level, 60);
    EXPECT_EQ(receiver->super(985, &level), 0);
    EXPECT_NEAR(level, 100 + 20 * std::log10(0.3), 0.2);
}

TEST(Radio, AFrameIsPutTogetherFromSeveralTunings) {
    const ReceiverLibrary receiver(radio(""));
    receiver.init();
    EXPECT_EQ(receiver->startEspectro(950, 1010, 100), 0);
    EXPECT_TRUE(receiver.frameComes());
    EXPECT_GT(receiver.swept(985), 85);
    EXPECT_LT(receiver.swept(960), 60);
    EXPECT_GT(receiver.swept(960), 20);  // noise, not nothing
    receiver->parar();
}

TEST(Radio, TheNearestRateThatItHasIsTheRate) {
    const ReceiverLibrary receiver(radio("coarse"));
    EXPECT_EQ(receiver.init(), "");
    EXPECT_THAT(receiver.report(), HasSubstr("sample rate: 1201200 Hz"));
    receiver.tune(985);
    EXPECT_TRUE(measured(receiver));
}

TEST(Radio, GapsAndLateSamplesDoNotEndIt) {
    const ReceiverLibrary receiver(radio("gaps"));
    EXPECT_EQ(receiver.init(), "");
    receiver.tune(985);
    EXPECT_TRUE(measured(receiver));
}

TEST(Radio, SamplesThatAreNoNumbersAreCountedAndLeaveFiguresThatAre) {
    const ReceiverLibrary receiver(radio("nan"));
    receiver.init();
    receiver.tune(985);
    EXPECT_TRUE(ReceiverLibrary::eventually([&] { return receiver.readings().field > 80; }));
    EXPECT_TRUE(std::isfinite(receiver.readings().peakModulation));
    EXPECT_TRUE(std::isfinite(receiver.readings().pilotError));
    EXPECT_THAT(receiver.report(), HasSubstr("samples that were no numbers: "));
}

TEST(Radio, OneWithoutAutomaticGainKeepsItsOwn) {
    const ReceiverLibrary receiver(radio("gainless"));
    EXPECT_EQ(receiver.init(), "");
    EXPECT_EQ(receiver.version(), 1.8F);
}

// A radio that cannot be had is one sentence with file and line, no unit, and nothing left open.
void expectRefused(const std::string& settings, const std::string& reason, int line = 1) {
    const Fixture fixture;
    const ReceiverLibrary receiver(settings);
    const std::string said = receiver.init();
    expectNoUnit(receiver, said, line, reason);
    receiver->parar();
    EXPECT_NE(receiver->normal(985, 0, 0, 0, 0), 0);
    EXPECT_EQ(receiver.readings(), hm16::Readings());
    EXPECT_EQ(fixture.devices(), 0);
    EXPECT_EQ(fixture.streams(), 0);
}

TEST(Radio, WithoutSoapySdrThereIsNoUnit) {
    expectRefused("source = soapy\nsoapy_library = libNotThere.so\n",
                  "source cannot be used: SoapySDR cannot be loaded: libNotThere.so");
    expectRefused("source = soapy\nsoapy_library = " HM16_RECEIVER "\n",
                  "has no function SoapySDRDevice_makeStrArgs; SoapySDR 0.8 is needed.");
}

TEST(Radio, WhatItRefusesIsSaid) {
    expectRefused("source = soapy\nsoapy_library = " HM16_RADIO "\nsoapy_device = driver=other\n",
                  "The radio \"driver=other\" cannot be opened: no match.");
    expectRefused(radio("refuse=rate"), "refuses the sample rate: sample rate out of range.");
    expectRefused(radio("rateless"), "does not tell its sample rate.");
    expectRefused(radio("refuse=frequency"), "refuses the frequency: out of range.");
    expectRefused(radio("", "centre_mhz = 433\n"), "refuses the frequency: out of range.");
    expectRefused(radio("gainless", "gain_db = 20\n"), "refuses the gain: no gain.");
    expectRefused(radio("refuse=stream"), "gives no samples: no such stream.");
    expectRefused(radio("refuse=activate"), "refuses its stream: no bandwidth left on the bus.");
}

TEST(Radio, WrongSettingsAreSaidBeforeItIsTouched) {
    expectRefused(radio("", "pace = fast\n"), "pace is fast, but a radio delivers", 6);
    expectRefused(radio("", "gain_db = loud\n"), "gain_db is \"loud\"", 6);
}

class RadioThatGoes : public testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(All, RadioThatGoes,
                         testing::Values("mute=late", "unplug", "flood", "empty", "trickle"),
                         [](const auto& way) {
                             const std::string word = way.param;
                             return word.substr(0, word.find('='));
                         });

TEST_P(RadioThatGoes, LeavesNoFiguresAndASilentUnitThatStillReturns) {
    const ReceiverLibrary receiver(radio(GetParam()));
    receiver.init();
    receiver.tune(985);
    EXPECT_TRUE(ReceiverLibrary::eventually([&] { return receiver.readings().field > 80; }));
    testing::internal::CaptureStderr();
    EXPECT_TRUE(ReceiverLibrary::eventually([&] { return receiver.readings() == nothing(); }));
    EXPECT_THAT(receiver.report(), HasSubstr("ended"));
    // Everything goes on returning, with nothing to show.
    receiver.tune(900);
    EXPECT_EQ(receiver.readings(), nothing());
    receiver->parar();
    float level = 77;
    EXPECT_NE(receiver->super(985, &level), 0);
    EXPECT_EQ(receiver->startEspectro(950, 1010, 100), 0);
    EXPECT_EQ(receiver->tramaEspectroRecibida(), 0);
    receiver->parar();
    receiver->demoMode();
    receiver->demoMode();
    const std::string said = testing::internal::GetCapturedStderr();
    EXPECT_THAT(said, HasSubstr("The radio \"driver=fixture,"));
    EXPECT_EQ(lines(said), 1) << said;
}

TEST(Radio, OneThatNeverSendsASampleIsSilent) {
    const ReceiverLibrary receiver(radio("mute=always"));
    EXPECT_EQ(receiver.init(), "");
    testing::internal::CaptureStderr();
    receiver.tune(985);
    EXPECT_TRUE(ReceiverLibrary::eventually(
        [&] { return receiver.report().find("ended") != std::string::npos; }));
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("has stopped sending."));
    EXPECT_EQ(receiver.readings(), nothing());
}

}  // namespace
