// SPDX-License-Identifier: GPL-3.0-or-later
// Each call of the program reaches the right function of a library, with its arguments in the right
// order.
#include "program/loaded_driver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <optional>
#include <string>
#include <vector>

namespace hmonitor {
namespace {

using testing::ElementsAre;

/// The calls that the library received.
std::vector<std::string> told;

template <class... Arguments>
std::int32_t tell(const char* name, std::int32_t result, Arguments... arguments) {
    std::string call = name;
    ((call += " " + std::to_string(arguments)), ...);
    told.push_back(call);
    return result;
}

/// A lambda as a function of a library: a lambda alone has the compiler's own way of being called,
/// and that is another one where libraries have 32 bits.
template <class Lambda>
struct OfALibrary {
    explicit OfALibrary(Lambda) {}
    template <class Result, class... Arguments>
    static Result HM16_CALL call(Arguments... arguments) {
        return Lambda{}(arguments...);
    }
    template <class Result, class... Arguments>
    using Function = Result(HM16_CALL*)(Arguments...);
    template <class Result, class... Arguments>
    operator Function<Result, Arguments...>() const {
        return &call<Result, Arguments...>;
    }
};

/// A library in which every function returns its own number and notes its arguments.
HM16_Functions noting() {
    HM16_Functions f = {};
    f.init = OfALibrary{[]() { return tell("init", 1); }};
    f.terminate = OfALibrary{[]() { return tell("terminate", 2); }};
    f.demoMode = OfALibrary{[]() { return tell("demoMode", 3); }};
    f.normal = OfALibrary{[](float frequency, int32_t average, int32_t audioMode, int32_t response,
                             int32_t logFiles) {
        return tell("normal", 4, int(frequency), average, audioMode, response, logFiles);
    }};
    f.parar = OfALibrary{[]() { return tell("parar", 5); }};
    f.reset = OfALibrary{[](int32_t what) { return tell("reset", 6, what); }};
    f.data = OfALibrary{[](float* a, float* b, float* c, float* d, float* e, float* f6, float* g,
                           float* h, float* i, float* j, float* k, float* l, float* m, float* n,
                           float* o, float* p) {
        float number = 0;
        for (float* output : {a, b, c, d, e, f6, g, h, i, j, k, l, m, n, o, p}) *output = ++number;
        return tell("data", 7);
    }};
    f.dataRds = OfALibrary{[](float* error, float* level) {
        const int before = int(*level);
        *error = 57;
        *level = 3;
        return tell("dataRds", 8, before);
    }};
    f.super = OfALibrary{[](float frequency, float* level) {
        *level = 61;
        return tell("super", 9, int(frequency));
    }};
    f.startEspectro = OfALibrary{[](float start, float stop, int32_t step) {
        return tell("startEspectro", 10, int(start), int(stop), step);
    }};
    f.tramaEspectroRecibida = OfALibrary{[]() { return tell("tramaEspectroRecibida", 11); }};
    f.getEspectro = OfALibrary{[](float frequency, float* level) {
        *level = 62;
        return tell("getEspectro", 12, int(frequency));
    }};
    f.respFrecuencia =
        OfALibrary{[](int32_t* a, int32_t* b, int32_t* c, int32_t* d, int32_t* e, int32_t* f6,
                      int32_t* g, int32_t* h, int32_t* i, int32_t* j, int32_t* k, int32_t* l,
                      int32_t* m, int32_t* n, int32_t* o, int32_t* p) {
            int32_t number = 0;
            for (int32_t* out : {a, b, c, d, e, f6, g, h, i, j, k, l, m, n, o, p}) *out = ++number;
            return tell("respFrecuencia", 13);
        }};
    f.setSintoMode = OfALibrary{[](int32_t mode) { return tell("setSintoMode", 14, mode); }};
    f.getHardwareVersion = OfALibrary{[](float* version) {
        *version = 1.8f;
        return tell("getHardwareVersion", 15);
    }};
    f.getDriverVersion = OfALibrary{[](float* version) {
        const int before = int(*version);
        *version = 4.2f;
        return tell("getDriverVersion", 16, before);
    }};
    return f;
}

struct LoadedDriverTest : testing::Test {
    LoadedDriverTest() { told.clear(); }
    const HM16_Functions functions = noting();
    LoadedDriver driver{functions};
};

TEST_F(LoadedDriverTest, EachCallReachesItsOwnFunctionAndBringsItsAnswerBack) {
    float number = 0;
    float other = 0;
    Readings readings;
    ResponsePairs pairs;
    EXPECT_EQ(driver.HM_Init(), 1);
    EXPECT_EQ(driver.HM_Terminate(), 2);
    EXPECT_EQ(driver.HM_DemoMode(), 3);
    EXPECT_EQ(driver.HM_Normal(981, 21, 22, 23, 24), 4);
    EXPECT_EQ(driver.HM_Parar(), 5);
    EXPECT_EQ(driver.HM_Reset(3), 6);
    EXPECT_EQ(driver.HM_Data(readings), 7);
    other = 9;
    EXPECT_EQ(driver.HM_DataRDS(number, other), 8);
    EXPECT_EQ(driver.HM_Super(982, number), 9);
    EXPECT_EQ(driver.HM_StartEspectro(875, 1080, 250), 10);
    EXPECT_EQ(driver.HM_TramaEspectroRecibida(), 11);
    EXPECT_EQ(driver.HM_GetEspectro(983, number), 12);
    EXPECT_EQ(driver.HM_RespFrecuencia(pairs), 13);
    EXPECT_EQ(driver.HM_setSintoMode(0), 14);
    EXPECT_EQ(driver.HM_getHardwareVersion(number), 15);
    number = 2;
    EXPECT_EQ(driver.HM_getDriverVersion(number), 16);
    EXPECT_THAT(
        told, ElementsAre("init", "terminate", "demoMode", "normal 981 21 22 23 24", "parar",
                          "reset 3", "data", "dataRds 9", "super 982", "startEspectro 875 1080 250",
                          "tramaEspectroRecibida", "getEspectro 983", "respFrecuencia",
                          "setSintoMode 0", "getHardwareVersion", "getDriverVersion 2"));
}

TEST_F(LoadedDriverTest, TheSixteenOutputsKeepTheirOrder) {
    Readings readings;
    driver.HM_Data(readings);
    float number = 0;
    for (std::size_t i = 0; i < figures::kDataOutputs; ++i) {
        EXPECT_EQ(readings.*figures::kOutputs[i], ++number);
    }
    EXPECT_EQ(readings.peakModulation, 1);
    EXPECT_EQ(readings.peaksPerMinute, 16);
    EXPECT_EQ(readings.rdsError, 0);
}

TEST_F(LoadedDriverTest, TheEightPairsAreAFrequencyAndItsLevelEach) {
    ResponsePairs pairs;
    driver.HM_RespFrecuencia(pairs);
    EXPECT_THAT(pairs.frequency, ElementsAre(1, 3, 5, 7, 9, 11, 13, 15));
    EXPECT_THAT(pairs.level, ElementsAre(2, 4, 6, 8, 10, 12, 14, 16));
}

TEST_F(LoadedDriverTest, LevelsAndVersionsComeBackInTheirOutputs) {
    float error = 0;
    float level = 0;
    driver.HM_DataRDS(error, level);
    EXPECT_EQ(error, 57);
    EXPECT_EQ(level, 3);
    driver.HM_Super(981, level);
    EXPECT_EQ(level, 61);
    driver.HM_GetEspectro(981, level);
    EXPECT_EQ(level, 62);
    driver.HM_getHardwareVersion(level);
    EXPECT_EQ(level, 1.8f);
    driver.HM_getDriverVersion(level);
    EXPECT_EQ(level, 4.2f);
}

/// Loudspeakers that keep their settings.
HM16_ListenState loudspeakers{sizeof(HM16_ListenState), 1, 40, 0};
const HM16_ListenV1 kListen{sizeof(HM16_ListenV1), OfALibrary{[](int32_t volume, int32_t muted) {
                                loudspeakers.volume = volume;
                                loudspeakers.muted = muted;
                                return 0;
                            }},
                            OfALibrary{[](HM16_ListenState* state) {
                                *state = loudspeakers;
                                return 0;
                            }}};

TEST_F(LoadedDriverTest, TheLoudspeakersAreThoseOfTheExtension) {
    const OfALibrary extension{[](const char* id) -> const void* {
        return std::string(id) == HM16_LISTEN ? &kListen : nullptr;
    }};
    LoadedDriver playing(functions, extension);
    EXPECT_EQ(playing.sound(), (Sound{true, 40, false}));
    playing.setSound(65, true);
    EXPECT_EQ(playing.sound(), (Sound{true, 65, true}));
    EXPECT_EQ(driver.sound(), std::nullopt);
    driver.setSound(1, false);
    EXPECT_EQ(loudspeakers.volume, 65);
    LoadedDriver other(functions, OfALibrary{[](const char*) -> const void* { return nullptr; }});
    EXPECT_EQ(other.sound(), std::nullopt);
}

HM16_AbsenceInfo whyNoUnit{};
int absenceAsked = 0;
const HM16_AbsenceV1 kAbsence{sizeof(HM16_AbsenceV1),
                              OfALibrary{[](HM16_AbsenceInfo* info) -> int32_t {
                                  ++absenceAsked;
                                  *info = whyNoUnit;
                                  return 0;
                              }}};

TEST_F(LoadedDriverTest, WhyNoUnitAnswersIsToldWhenNoneDoes) {
    static float version = 0;
    HM16_Functions silent = functions;
    silent.getHardwareVersion = OfALibrary{[](float* out) -> int32_t {
        *out = version;
        return 0;
    }};
    LoadedDriver absent(silent, OfALibrary{[](const char* id) -> const void* {
                            return std::string(id) == HM16_ABSENCE ? &kAbsence : nullptr;
                        }});
    std::vector<UnitAbsence::Cause> causes;
    absent.onAbsence = [&](const UnitAbsence& absence) { causes.push_back(absence.cause); };
    whyNoUnit.cause = HM16_NO_RADIO;
    version = 1.8f;
    float level = 0;
    absent.HM_getHardwareVersion(level);
    EXPECT_EQ(absenceAsked, 0) << "a unit answers";
    version = 0;
    absent.HM_getHardwareVersion(level);
    EXPECT_THAT(causes, ElementsAre(UnitAbsence::Cause::NoRadio));
    whyNoUnit.cause = HM16_NOT_TOLD;
    absent.HM_getHardwareVersion(level);
    EXPECT_EQ(causes.size(), 1u) << "the library does not know";
    driver.HM_getHardwareVersion(level);  // a library without the extension
    EXPECT_EQ(absenceAsked, 2);
}

/// A library with slots of three figures, one of which the registry lacks.
struct Slots {
    std::vector<HM16_Slot> kept;
    int figures = 3;
    int copies = 0;
};
Slots slotLibrary;
const HM16_FiguresV1 kSlots{
    sizeof(HM16_FiguresV1), OfALibrary{[]() -> int32_t { return slotLibrary.figures; }},
    OfALibrary{[](int32_t index, HM16_FigureInfo* info) -> int32_t {
        const char* const keys[] = {"loudness", "field", "pilot_error"};
        std::strncpy(info->key, keys[index], sizeof info->key);
        return 0;
    }},
    OfALibrary{[](int32_t station, uint64_t from, HM16_Slot* out, uint32_t slotSize, int32_t room,
                  uint64_t* next) -> int32_t {
        EXPECT_EQ(station, 0);
        EXPECT_EQ(slotSize, sizeof(HM16_Slot));
        int32_t copied = 0;
        for (const HM16_Slot& slot : slotLibrary.kept) {
            if (slot.number < from || copied == room) continue;
            out[copied++] = slot;
            *next = slot.number + 1;
        }
        slotLibrary.copies += copied;
        return copied;
    }}};

HM16_Slot slotSaying(uint64_t number, std::initializer_list<uint8_t> states) {
    HM16_Slot slot{};
    slot.number = number;
    std::copy(states.begin(), states.end(), slot.state);
    return slot;
}

struct TakenSlots final : SlotTaker {
    void take(const MeasuredSlot& slot) override { all.push_back(slot); }
    std::vector<MeasuredSlot> all;
};

struct LoadedSlots : testing::Test {
    LoadedSlots() { slotLibrary = {}; }
    static std::optional<figures::State> stateIn(const SaidStates& said, const char* key) {
        return said[static_cast<std::size_t>(figures::find(key) - figures::all().data())];
    }
    std::optional<SaidStates> newest() {
        TakenSlots taken;
        driver.readSlots(taken);
        return driver.states();
    }
    const HM16_Functions functions = noting();
    LoadedDriver driver{functions, OfALibrary{[](const char* id) -> const void* {
                            return std::string(id) == HM16_FIGURES ? &kSlots : nullptr;
                        }}};
};

TEST_F(LoadedSlots, SayNothingBeforeTheFirstOne) {
    EXPECT_EQ(newest(), std::nullopt);
}

TEST_F(LoadedSlots, SayTheStatesOfTheNewestByTheFiguresKeys) {
    slotLibrary.kept = {slotSaying(4, {HM16_KNOWN, HM16_SETTLING, HM16_SETTLING}),
                        slotSaying(5, {HM16_GAP, HM16_KNOWN, HM16_NO_PILOT})};
    const auto said = newest();
    ASSERT_TRUE(said);
    EXPECT_EQ(stateIn(*said, "field"), figures::State::Known);
    EXPECT_EQ(stateIn(*said, "pilot_error"), figures::State::NoPilot);
    EXPECT_EQ(stateIn(*said, "distortion"), std::nullopt) << "the library does not have it";
}

TEST_F(LoadedSlots, AreReadOnceEachAndTheLastStands) {
    for (uint64_t number = 0; number < 30; ++number) {
        slotLibrary.kept.push_back(slotSaying(number, {0, HM16_TOO_NOISY, 0}));
    }
    EXPECT_EQ(stateIn(*newest(), "field"), figures::State::TooNoisy);
    EXPECT_EQ(slotLibrary.copies, 30);
    EXPECT_EQ(stateIn(*newest(), "field"), figures::State::TooNoisy);
    EXPECT_EQ(slotLibrary.copies, 30);
    slotLibrary.kept = {slotSaying(30, {0, HM16_MULTIPATH, 0})};
    EXPECT_EQ(stateIn(*newest(), "field"), figures::State::Multipath);
}

TEST_F(LoadedSlots, OfANumberThatIsNoStateAreNotMeasured) {
    slotLibrary.kept = {slotSaying(0, {0, 13, 255})};
    EXPECT_EQ(stateIn(*newest(), "field"), figures::State::NotMeasured);
    EXPECT_EQ(stateIn(*newest(), "pilot_error"), figures::State::NotMeasured);
}

TEST_F(LoadedSlots, OfTheStationBeforeSayNothingOfTheNextOne) {
    slotLibrary.kept = {slotSaying(0, {0, HM16_KNOWN, 0}), slotSaying(1, {0, HM16_KNOWN, 0})};
    ASSERT_TRUE(newest());
    slotLibrary.kept.push_back(slotSaying(2, {0, HM16_KNOWN, 0}));
    driver.HM_Normal(1025, 0, 0, 0, 0);
    EXPECT_EQ(newest(), std::nullopt);
    slotLibrary.kept.push_back(slotSaying(3, {0, HM16_SETTLING, 0}));
    EXPECT_EQ(stateIn(*newest(), "field"), figures::State::Settling);
}

TEST_F(LoadedSlots, BeginAnewWhenTheUnitIsOpenedAnew) {
    slotLibrary.kept = {slotSaying(900, {0, HM16_KNOWN, 0})};
    ASSERT_TRUE(newest());
    driver.HM_Init();
    slotLibrary.kept.clear();
    EXPECT_EQ(newest(), std::nullopt);
    slotLibrary.kept = {slotSaying(0, {0, HM16_SETTLING, 0})};
    EXPECT_EQ(stateIn(*newest(), "field"), figures::State::Settling);
}

TEST_F(LoadedSlots, AreHandedOnOnceEachByTheFiguresKeys) {
    for (uint64_t number = 0; number < 30; ++number) {
        slotLibrary.kept.push_back(slotSaying(number, {0, HM16_KNOWN, HM16_NO_PILOT}));
    }
    HM16_Slot& last = slotLibrary.kept.back();
    last.utcNs = 1'700'000'000'000'000'000;
    last.signalNs = 1'500'000'000;
    last.lengthMs = 50;
    last.value[0] = 99;
    last.value[1] = 61.5f;
    TakenSlots taken;
    driver.readSlots(taken);
    driver.readSlots(taken);
    ASSERT_EQ(taken.all.size(), 30u);
    const MeasuredSlot& slot = taken.all.back();
    EXPECT_EQ(slot.number, 29u);
    EXPECT_EQ(slot.utcNs, last.utcNs);
    EXPECT_EQ(slot.signalNs, last.signalNs);
    EXPECT_EQ(slot.lengthMs, 50u);
    const auto place = [](const char* key) {
        return static_cast<std::size_t>(figures::find(key) - figures::all().data());
    };
    EXPECT_EQ(slot.values[place("field")], 61.5f);
    EXPECT_EQ(slot.states[place("field")], figures::State::Known);
    EXPECT_EQ(slot.states[place("pilot_error")], figures::State::NoPilot);
    EXPECT_EQ(slot.states[place("distortion")], figures::State::NotMeasured)
        << "the library does not have it";
}

TEST_F(LoadedSlots, OfTheStationBeforeAreHandedToNobody) {
    slotLibrary.kept = {slotSaying(0, {0, HM16_KNOWN, 0})};
    driver.HM_Normal(1025, 0, 0, 0, 0);
    TakenSlots taken;
    driver.readSlots(taken);
    EXPECT_TRUE(taken.all.empty());
}

TEST_F(LoadedSlots, AreThereWhereAUnitIs) {
    EXPECT_TRUE(driver.hasSlots());
    slotLibrary.figures = 0;
    LoadedDriver without(functions, OfALibrary{[](const char*) -> const void* { return &kSlots; }});
    EXPECT_FALSE(without.hasSlots());
    EXPECT_FALSE(LoadedDriver(functions).hasSlots());
}

TEST(NoLibraryTest, EveryCallGivesZeroAndLeavesItsOutputsAlone) {
    NoLibrary none;
    Readings readings;
    float own = 0;
    for (const figures::Output output : figures::kOutputs) readings.*output = ++own;
    const Readings before = readings;
    ResponsePairs pairs;
    pairs.frequency[3] = 400;
    float number = 5;
    float other = 6;
    const std::vector<std::int32_t> answers = {none.HM_Init(),
                                               none.HM_Terminate(),
                                               none.HM_DemoMode(),
                                               none.HM_Normal(981, 1, 1, 1, 1),
                                               none.HM_Parar(),
                                               none.HM_Reset(1),
                                               none.HM_Data(readings),
                                               none.HM_DataRDS(number, other),
                                               none.HM_Super(981, number),
                                               none.HM_StartEspectro(875, 1080, 100),
                                               none.HM_TramaEspectroRecibida(),
                                               none.HM_GetEspectro(981, number),
                                               none.HM_RespFrecuencia(pairs),
                                               none.HM_setSintoMode(0),
                                               none.HM_getHardwareVersion(number),
                                               none.HM_getDriverVersion(other)};
    EXPECT_THAT(answers, testing::Each(0));
    EXPECT_EQ(readings, before);
    EXPECT_EQ(pairs.frequency[3], 400);
    EXPECT_EQ(number, 5);
    EXPECT_EQ(other, 6);
}

}  // namespace
}  // namespace hmonitor
