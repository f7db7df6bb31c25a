// SPDX-License-Identifier: GPL-3.0-or-later
// A live radio through SoapySDR, found when the unit is opened. The radio is a plug-in of the
// tests; SoapySDR, the library and the loader are the real ones.
#include <arpa/inet.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cmath>
#include <csignal>
#include <cstdlib>

#include "drivers/hm16_absence.h"
#include "drivers/hm16_more.h"
#include "tests/drivers/receiver/receiver_library.h"

namespace {

using testing::HasSubstr;

// SoapySDR looks for plug-ins there, once, when the first device is asked for.
const int pluginPathIsSet =
    setenv("SOAPY_SDR_PLUGIN_PATH", std::filesystem::path(HM16_RADIO).parent_path().c_str(), 1);

std::string radio(const std::string& arguments, const std::string& more = "") {
    return "source = soapy\nsoapy_device = driver=fixture" +
           (arguments.empty() ? "" : "," + arguments) + "\nrate_hz = 1200000\nlevel_step_db = 0\n" +
           more;
}

// The plug-in itself, which SoapySDR loads, too. Its faults are reset before and after a test.
class Fixture {
 public:
    Fixture() : handle_(dlopen(HM16_RADIO, RTLD_NOW | RTLD_LOCAL)) { restore(); }
    ~Fixture() {
        restore();
        dlclose(handle_);
    }
    int devices() const { return function<int()>("fixture_open_devices")(); }
    int streams() const { return function<int()>("fixture_open_streams")(); }
    void unplug(bool yes) const { function<void(int)>("fixture_unplug")(yes ? 1 : 0); }
    void hold(bool yes) const { function<void(int)>("fixture_hold")(yes ? 1 : 0); }
    void repair() const { function<void()>("fixture_repair")(); }
    std::string told(const char* what) const {
        return function<const char*(const char*)>("fixture_told")(what);
    }

 private:
    template <typename Signature>
    Signature* function(const char* name) const {
        return reinterpret_cast<Signature*>(dlsym(handle_, name));
    }
    void restore() const {
        unplug(false);
        hold(false);
        repair();
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

bool heard(const ReceiverLibrary& receiver) {
    return ReceiverLibrary::eventually([&] { return receiver.readings().field > 80; });
}

bool silent(const ReceiverLibrary& receiver) {
    return ReceiverLibrary::eventually([&] { return receiver.readings() == nothing(); });
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
        EXPECT_TRUE(ReceiverLibrary::eventually(
            [&] { return std::fabs(receiver.readings().levelFirst + 6.02) < 0.2; }));
        const auto now = receiver.readings();
        EXPECT_NEAR(now.field, 100 + 20 * std::log10(0.3), 0.2);
        EXPECT_NEAR(now.levelFirst, 20 * std::log10(0.5), 0.2);
        EXPECT_NEAR(now.levelSecond, 20 * std::log10(0.1), 0.2);
        EXPECT_FALSE(receiver.step(1));  // a radio cannot be driven step by step
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
    const ReceiverLibrary receiver(radio("coarse=1"));
    EXPECT_EQ(receiver.init(), "");
    EXPECT_THAT(receiver.report(), HasSubstr("sample rate: 1201200 Hz"));
    receiver.tune(985);
    EXPECT_TRUE(measured(receiver));
}

TEST(Radio, TheNearestFrequencyThatItHasIsTheCentre) {
    const ReceiverLibrary receiver(radio("steps=1"));
    EXPECT_EQ(receiver.init(), "");
    receiver.tune(985);
    EXPECT_TRUE(measured(receiver));
    EXPECT_THAT(receiver.report(), HasSubstr("centre: 98.34 MHz"));
}

TEST(Radio, LostSamplesDoNotEndItAndAreReported) {
    const ReceiverLibrary receiver(radio("gaps=1"));
    EXPECT_EQ(receiver.init(), "");
    receiver.tune(985);
    EXPECT_TRUE(heard(receiver));
    EXPECT_TRUE(ReceiverLibrary::eventually(
        [&] { return receiver.report().find("samples lost: 0 times") == std::string::npos; }));
    EXPECT_THAT(receiver.report(), HasSubstr("samples lost: "));
}

TEST(Radio, OneThatLosesNothingReportsNoLoss) {
    const ReceiverLibrary receiver(radio(""));
    receiver.init();
    receiver.tune(985);
    EXPECT_TRUE(heard(receiver));
    EXPECT_THAT(receiver.report(), HasSubstr("samples lost: 0 times"));
}

TEST(Radio, SamplesThatAreNoNumbersAreCountedAndLeaveFiguresThatAre) {
    const ReceiverLibrary receiver(radio("nan=1"));
    receiver.init();
    receiver.tune(985);
    EXPECT_TRUE(heard(receiver));
    EXPECT_TRUE(std::isfinite(receiver.readings().peakModulation));
    EXPECT_TRUE(std::isfinite(receiver.readings().pilotError));
    EXPECT_THAT(receiver.report(), HasSubstr("samples that were no numbers: "));
}

TEST(Radio, OneWithoutAutomaticGainKeepsItsOwn) {
    const ReceiverLibrary receiver(radio("gainless=1"));
    EXPECT_EQ(receiver.init(), "");
    EXPECT_EQ(receiver.version(), 1.8F);
}

TEST(Radio, ItsGainIsSetAndTheAutomaticOneIsOffThen) {
    const Fixture fixture;
    const ReceiverLibrary receiver(radio("", "centre_mhz = 98.3\ngain_db = -6\n"));
    EXPECT_EQ(receiver.init(), "");
    EXPECT_EQ(fixture.told("automatic"), "no");
    float level = 0;
    EXPECT_EQ(receiver->super(985, &level), 0);
    EXPECT_NEAR(level, 100 + 20 * std::log10(0.3) - 6, 0.2);
}

TEST(Radio, AntennaBandwidthClockBiasCorrectionAndItsOwnSettingsAreSet) {
    const Fixture fixture;
    const ReceiverLibrary receiver(
        radio("",
              "antenna = LOOP\nbandwidth_khz = 1500\nclock_source = external\nbias = yes\n"
              "correction_ppm = -12\nsoapy_settings = direct_samp=2\n"));
    EXPECT_EQ(receiver.init(), "");
    EXPECT_EQ(receiver.version(), 1.8F);
    EXPECT_EQ(fixture.told("bandwidth"), "1500000");
    EXPECT_EQ(fixture.told("biasT_ctrl"), "true");
    EXPECT_EQ(fixture.told("correction"), "-12");
    EXPECT_EQ(fixture.told("direct_samp"), "2");
}

// A radio that cannot be opened gives one sentence with file and line, no unit, and nothing stays
// open.
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

// Why no unit answers, as the library says it to the program.
HM16_AbsenceInfo absenceWith(const std::string& settings) {
    const Fixture fixture;
    const ReceiverLibrary receiver(settings);
    receiver.init();
    const auto extension =
        reinterpret_cast<HM16_ExtensionFunction>(receiver.library().extra(HM16_EXTENSION_NAME));
    HM16_AbsenceInfo info{};
    info.size = sizeof info;
    EXPECT_EQ(static_cast<const HM16_AbsenceV1*>(extension(HM16_ABSENCE))->why(&info), 0);
    return info;
}

TEST(Radio, WhyItIsNotThereIsSaidToTheProgram) {
    const auto missing = absenceWith("source = soapy\nsoapy_device = driver=other\n");
    EXPECT_EQ(missing.cause, HM16_NO_RADIO);
    EXPECT_STREQ(missing.what, "driver=other");
    const auto unreached = absenceWith("source = soapy\nsoapy_library = libNotThere.so\n");
    EXPECT_EQ(unreached.cause, HM16_NO_SOAPY);
    const auto strange = absenceWith("source = soapy\nsoapy_library = " HM16_RECEIVER "\n");
    EXPECT_EQ(strange.cause, HM16_NO_SOAPY);
    const auto refusing = absenceWith(radio("refuse=rate"));
    EXPECT_EQ(refusing.cause, HM16_BAD_RADIO);
    EXPECT_THAT(refusing.words, HasSubstr("refuses the sample rate: sample rate out of range."));
    EXPECT_EQ(absenceWith(radio("", "gain_db = loud\n")).cause, HM16_BAD_SETTING);
    EXPECT_EQ(absenceWith("source = recording\nfile = nowhere.cu8\n").cause, HM16_BAD_RECORDING);
    EXPECT_EQ(absenceWith(radio("")).cause, HM16_NOT_TOLD);
}

TEST(Radio, WhatItRefusesIsSaid) {
    expectRefused("source = soapy\nsoapy_device = driver=other\n",
                  "The radio \"driver=other\" cannot be opened: ");
    expectRefused(radio("refuse=rate"), "refuses the sample rate: sample rate out of range.");
    expectRefused(radio("rateless=1"), "does not tell its sample rate.");
    expectRefused(radio("refuse=frequency"), "refuses the frequency: out of range.");
    expectRefused(radio("", "centre_mhz = 433\n"), "refuses the frequency: out of range.");
    expectRefused(radio("gainless=1", "gain_db = 20\n"), "refuses the gain: no gain.");
    expectRefused(radio("refuse=stream"), "gives no samples: no such stream.");
    expectRefused(radio("refuse=activate"), "refuses its stream: no bandwidth left on the bus.");
}

TEST(Radio, SettingsThatItHasNotAreSaid) {
    expectRefused(radio("", "antenna = ROOF\n"), "has no antenna \"ROOF\".");
    expectRefused(radio("", "clock_source = sun\n"), "has no clock source \"sun\".");
    expectRefused(radio("", "bandwidth_khz = 9000\n"), "refuses the bandwidth: no such filter.");
    expectRefused(radio("biasless=1", "bias = yes\n"), "has no switch for a bias voltage.");
    expectRefused(radio("uncorrected=1", "correction_ppm = 3\n"),
                  "has no correction of its own; \"clock_ppm\" corrects the figures.");
    expectRefused(radio("", "soapy_settings = colour=red\n"),
                  "does not take the setting colour = red.");
}

TEST(Radio, WrongSettingsAreSaidBeforeItIsTouched) {
    expectRefused(radio("", "pace = fast\n"), "pace is fast, but a radio delivers", 5);
    expectRefused(radio("", "gain_db = loud\n"), "gain_db is \"loud\"", 5);
    expectRefused(radio("", "soapy_settings = loud\n"), "must be name=value, name=value.", 5);
    expectRefused(radio("", "bias = maybe\n"), "bias is \"maybe\"", 5);
}

struct WayToGo {
    const char* name;
    const char* words;
};

class RadioThatGoes : public testing::TestWithParam<WayToGo> {};

INSTANTIATE_TEST_SUITE_P(All, RadioThatGoes,
                         testing::Values(WayToGo{"mute", " has stopped sending."},
                                         WayToGo{"error", " has failed: CORRUPTION."},
                                         WayToGo{"flood", " has stopped sending."},
                                         WayToGo{"empty", " has stopped sending."},
                                         WayToGo{"trickle", " has stopped sending."}),
                         [](const auto& way) { return std::string(way.param.name); });

TEST_P(RadioThatGoes, LeavesNoFiguresAndASilentUnitThatStillReturns) {
    const Fixture fixture;
    const ReceiverLibrary receiver(radio(std::string("late=") + GetParam().name));
    receiver.init();
    receiver.tune(985);
    EXPECT_TRUE(heard(receiver));
    testing::internal::CaptureStderr();
    EXPECT_TRUE(silent(receiver));
    EXPECT_THAT(receiver.report(), HasSubstr("ended"));
    // All calls still return, with nothing to show.
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
    EXPECT_THAT(said, HasSubstr(GetParam().words));
    EXPECT_EQ(lines(said), 1) << said;
}

TEST(Radio, OneThatNeverSendsASampleIsSilent) {
    const ReceiverLibrary receiver(radio("mute=1"));
    EXPECT_EQ(receiver.init(), "");
    testing::internal::CaptureStderr();
    receiver.tune(985);
    EXPECT_TRUE(ReceiverLibrary::eventually(
        [&] { return receiver.report().find("ended") != std::string::npos; }));
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("has stopped sending."));
    EXPECT_EQ(receiver.readings(), nothing());
}

TEST(Radio, OneThatComesBackIsOpenedAgainAndMeasuresOn) {
    const Fixture fixture;
    const ReceiverLibrary receiver(radio(""));
    receiver.init();
    receiver.tune(985);
    EXPECT_TRUE(measured(receiver));
    testing::internal::CaptureStderr();
    fixture.unplug(true);
    EXPECT_TRUE(silent(receiver));
    EXPECT_TRUE(ReceiverLibrary::eventually([&] { return fixture.devices() == 0; }));
    fixture.unplug(false);
    EXPECT_TRUE(measured(receiver));
    EXPECT_EQ(fixture.devices(), 1);
    EXPECT_THAT(receiver.report(), testing::Not(HasSubstr("ended")));
    const std::string said = testing::internal::GetCapturedStderr();
    EXPECT_THAT(said, HasSubstr("The radio \"driver=fixture\" has failed: STREAM_ERROR.\n"));
    EXPECT_THAT(said, HasSubstr("The radio \"driver=fixture\" is back.\n"));
    EXPECT_EQ(lines(said), 2) << said;
}

TEST(Radio, OneThatComesBackWhileNothingRunsMeasuresWhenAsked) {
    const Fixture fixture;
    const ReceiverLibrary receiver(radio("", "centre_mhz = 98.3\n"));
    receiver.init();
    receiver.tune(985);
    EXPECT_TRUE(heard(receiver));
    testing::internal::CaptureStderr();
    fixture.unplug(true);
    EXPECT_TRUE(silent(receiver));
    receiver->parar();
    fixture.unplug(false);
    float level = 0;
    EXPECT_TRUE(ReceiverLibrary::eventually([&] { return receiver->super(985, &level) == 0; }));
    EXPECT_NEAR(level, 100 + 20 * std::log10(0.3), 0.2);
    testing::internal::GetCapturedStderr();
}

TEST(Radio, AStreamThatIgnoresItsTimeOutNeitherFreezesReadingsNorHoldsUpClosing) {
    const Fixture fixture;
    using Clock = std::chrono::steady_clock;
    {
        const ReceiverLibrary receiver(radio(""));
        receiver.init();
        receiver.tune(985);
        EXPECT_TRUE(heard(receiver));
        testing::internal::CaptureStderr();
        fixture.hold(true);
        EXPECT_TRUE(silent(receiver));
        EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr(" has stopped sending."));
        // Closing waits for the driver for a second, not for ever; the bound leaves room for a busy
        // machine.
        const auto before = Clock::now();
        receiver->parar();
        receiver->terminate();
        EXPECT_LT(Clock::now() - before, std::chrono::seconds(10));
        EXPECT_EQ(fixture.devices(), 1);
    }
    // For the program the library is unloaded. Now the driver's call returns.
    fixture.hold(false);
    EXPECT_TRUE(ReceiverLibrary::eventually([&] { return fixture.devices() == 0; }));
}

TEST(Radio, AStreamThatGoesOnAfterAHoldIsBackByItself) {
    const Fixture fixture;
    const ReceiverLibrary receiver(radio(""));
    receiver.init();
    receiver.tune(985);
    EXPECT_TRUE(heard(receiver));
    testing::internal::CaptureStderr();
    fixture.hold(true);
    EXPECT_TRUE(silent(receiver));
    fixture.hold(false);
    EXPECT_TRUE(measured(receiver));
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr(" is back.\n"));
}

// The same radio in another process, over the loopback network; the process ends with this object.
class RadioServer {
 public:
    explicit RadioServer(int port) {
        const std::string bind = "--bind=127.0.0.1:" + std::to_string(port);
        process_ = fork();
        if (process_ == 0) {
            const int nowhere = open("/dev/null", O_WRONLY);
            dup2(nowhere, STDOUT_FILENO);
            dup2(nowhere, STDERR_FILENO);
            setenv("LD_PRELOAD", HM16_NO_DISCOVERY, 1);
            execlp("SoapySDRServer", "SoapySDRServer", bind.c_str(), nullptr);
            _exit(127);
        }
    }
    ~RadioServer() {
        kill(process_, SIGKILL);
        waitpid(process_, nullptr, 0);
    }
    bool listens(int port) const {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(static_cast<std::uint16_t>(port));
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        const int probe = socket(AF_INET, SOCK_STREAM, 0);
        const bool answers =
            connect(probe, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
        close(probe);
        return answers;
    }

 private:
    pid_t process_ = 0;
};

// A radio over the network disappears with its server and comes back with it.
TEST(Radio, OneOnAnotherMachineIsMeasuredGoesAndComesBack) {
    const int port = 50000 + static_cast<int>(getpid() % 10000);
    const std::string device =
        "driver=remote,remote=tcp://127.0.0.1:" + std::to_string(port) + ",remote:driver=fixture";
    auto server = std::make_unique<RadioServer>(port);
    ASSERT_TRUE(ReceiverLibrary::eventually([&] { return server->listens(port); }));
    const ReceiverLibrary receiver("source = soapy\nsoapy_device = " + device +
                                   "\nrate_hz = 1200000\nlevel_step_db = 0\n");
    receiver.init();
    ASSERT_EQ(receiver.version(), 1.8F);
    receiver.tune(985);
    EXPECT_TRUE(measured(receiver));
    testing::internal::CaptureStderr();
    server.reset();
    EXPECT_TRUE(silent(receiver));
    server = std::make_unique<RadioServer>(port);
    EXPECT_TRUE(measured(receiver));
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr(" is back.\n"));
}

}  // namespace
