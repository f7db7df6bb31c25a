// SPDX-License-Identifier: GPL-3.0-or-later
// Calls that only some places of the program may make.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <set>
#include <string>

#include "tests/architecture/source_tree.h"

namespace hmonitor::test {
namespace {

using testing::ElementsAre;

bool isDriversDoor(const SourceFile& file) {
    return file.isUnder("drivers") || file.path.starts_with("program/driver") ||
           file.path.starts_with("program/loaded_driver");
}

/// The program's source files that contain one of the calls, without core/ and the driver door.
std::set<std::string> filesWith(std::initializer_list<const char*> calls) {
    std::set<std::string> found;
    for (const SourceFile& file : sourceFiles()) {
        const bool apart = file.isUnder("tests") || file.isUnder("bench") || file.isUnder("core") ||
                           isDriversDoor(file);
        if (apart) continue;
        for (const std::string& line : file.lines) {
            const std::string code = line.substr(0, line.find("//"));
            for (const char* call : calls) {
                if (code.find(call) != std::string::npos) found.insert(file.path);
            }
        }
    }
    return found;
}

TEST(Calls, TheDriverIsClosedByThePowerKeyAndTheRefusedOfferAlone) {
    EXPECT_THAT(filesWith({"HM_Terminate("}),
                ElementsAre("panels/modulation/form1.cpp", "panels/modulation/form1_keys.cpp"));
}

TEST(Calls, TheDriverIsOpenedByTheSplashAlone) {
    EXPECT_THAT(filesWith({"HM_Init("}), ElementsAre("startup/form_wait_load.cpp"));
}

TEST(Calls, TheTunerModeIsSetByTheLoadOfTheFirstPanelAlone) {
    EXPECT_THAT(filesWith({"HM_setSintoMode("}), ElementsAre("panels/modulation/form1.cpp"));
}

TEST(Calls, TuningGoesThroughTheTunerAlone) {
    EXPECT_THAT(filesWith({"HM_Normal("}), ElementsAre("program/tuner.cpp"));
}

TEST(Calls, TheUnitsPointsAreMeasuredByARunAlone) {
    EXPECT_THAT(filesWith({"HM_Super("}), ElementsAre("program/point_run.cpp"));
}

TEST(Calls, TheUnitsFramesAreAskedForByARunAlone) {
    EXPECT_THAT(filesWith({"HM_StartEspectro(", "HM_GetEspectro("}),
                ElementsAre("program/frame_run.cpp"));
}

TEST(Calls, ThePanelSettingsAreWrittenByTheKeysThatStoreThemAlone) {
    // Power and detector keys; audio mode; arming a response run; the options of the editor.
    EXPECT_THAT(filesWith({"rewritePanelLine(", ".with(PanelLine::"}),
                ElementsAre("panels/modulation/form1_keys.cpp", "program/tuner.cpp",
                            "tuner/form_b_set_memories_store.cpp"));
}

}  // namespace
}  // namespace hmonitor::test
