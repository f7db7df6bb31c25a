// SPDX-License-Identifier: GPL-3.0-or-later
// Every call reaches the library in its process once, in its order, with what goes in and comes
// out.
#include "tests/drivers/host/told_library.h"

namespace hm16::test {
namespace {

TEST(HostedCalls, ReachTheLibraryOnceAndInTheirOrder) {
    ToldLibrary told;
    told.load();
    const HM16_Functions& f = told.call();
    EXPECT_EQ(f.init(), 11);
    EXPECT_EQ(f.setSintoMode(0), 26);
    EXPECT_EQ(f.setClient(-3), 25);
    EXPECT_EQ(f.directorio("/a folder"), 14);
    EXPECT_EQ(f.parar(), 16);
    EXPECT_EQ(f.normal(1025.5f, 1, 0, 1, 0), 15);
    told.readings();
    told.readings();
    EXPECT_EQ(f.parar(), 16);
    EXPECT_EQ(f.reset(3), 17);
    EXPECT_EQ(f.startEspectro(880, 1080, 25), 21);
    EXPECT_EQ(f.tramaEspectroRecibida(), 1);
    EXPECT_EQ(f.demoMode(), 13);
    EXPECT_EQ(f.terminate(), 12);
    EXPECT_THAT(
        told.calls(),
        ElementsAre("HM_Init", "HM_setSintoMode(0)", "HM_setClient(-3)", "HM_Directorio(/a folder)",
                    "HM_Parar", "HM_Normal(1025.5, 1, 0, 1, 0)", "HM_Data", "HM_Data", "HM_Parar",
                    "HM_Reset(3)", "HM_StartEspectro(880, 1080, 25)", "HM_TramaEspectroRecibida",
                    "HM_DemoMode", "HM_Terminate"));
    EXPECT_TRUE(told.watch.troubles.empty());
}

TEST(HostedCalls, GiveEachOutputItsPlaceAndLeaveAloneWhatTheLibraryDoes) {
    ToldLibrary told;
    told.load();
    EXPECT_THAT(told.readings(), ElementsAre(101, 102, 3, 103, 104, 105, 106, 107, 108, 109, 110,
                                             111, 112, 113, 114, 115));
    std::array<std::int32_t, 16> r{};
    EXPECT_EQ(
        told.call().respFrecuencia(&r[0], &r[1], &r[2], &r[3], &r[4], &r[5], &r[6], &r[7], &r[8],
                                   &r[9], &r[10], &r[11], &r[12], &r[13], &r[14], &r[15]),
        24);
    EXPECT_THAT(r,
                ElementsAre(-1, -2, -3, -4, -5, -6, -7, -8, -9, -10, -11, -12, -13, -14, -15, -16));
}

TEST(HostedCalls, CarryWhatTheCallerLoadedAnOutputWith) {
    ToldLibrary told;
    told.load();
    float error = 9, level = 3.5f;
    EXPECT_EQ(told.call().dataRds(&error, &level), 19);
    EXPECT_EQ(error, -2.5f);
    EXPECT_EQ(level, 3.5f);
    EXPECT_EQ(told.call().getEspectro(880.25f, &level), 23);
    EXPECT_EQ(level, 4.5f);
    EXPECT_EQ(told.call().super(985, &level), 0);
    EXPECT_EQ(level, 98.5f);
    EXPECT_THAT(told.calls(),
                ElementsAre("HM_DataRDS(3.5)", "HM_GetEspectro(880.25)", "HM_Super(985)"));
}

TEST(HostedCalls, TellVersionsAndTheSintoMode) {
    ToldLibrary told;
    told.load();
    float hardware = 0, library = 0;
    std::int32_t mode = 0;
    EXPECT_EQ(told.call().getHardwareVersion(&hardware), 28);
    EXPECT_EQ(told.call().getDriverVersion(&library), 29);
    EXPECT_EQ(told.call().getSintoMode(&mode), 27);
    EXPECT_EQ(hardware, 1.8f);
    EXPECT_EQ(library, 4.5f);
    EXPECT_EQ(mode, 7);
}

TEST(HostedCalls, KeepTheirOrderOverThousands) {
    ToldLibrary told;
    told.load();
    std::vector<std::string> wanted;
    for (int i = 0; i < 3000; ++i) {
        ASSERT_EQ(told.call().reset(i), 17);
        wanted.push_back("HM_Reset(" + std::to_string(i) + ")");
    }
    EXPECT_EQ(told.calls(), wanted);
}

TEST(HostedCalls, OfALibraryThatIsGoneDoNothing) {
    HM16_Functions functions;
    {
        ToldLibrary told;
        told.load();
        functions = told.call();
    }
    float level = 5;
    EXPECT_EQ(functions.init(), 0);
    EXPECT_EQ(functions.getEspectro(880, &level), 0);
    EXPECT_EQ(level, 5);
}

}  // namespace
}  // namespace hm16::test
