// SPDX-License-Identifier: GPL-3.0-or-later
// The programs beside the receiver, called as by a shell.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <string>

#include "tests/support/temp_folder.h"

namespace hm16::receiver {
namespace {

using hmonitor::test::TempFolder;
using testing::HasSubstr;

struct Said {
    int code = -1;
    std::string text;
};

Said shell(const std::string& command) {
    Said said;
    FILE* const pipe = popen((command + " 2>&1").c_str(), "r");
    if (pipe == nullptr) return said;
    char piece[4096];
    for (std::size_t size; (size = std::fread(piece, 1, sizeof piece, pipe)) > 0;) {
        said.text.append(piece, size);
    }
    const int status = pclose(pipe);
    if (WIFEXITED(status)) said.code = WEXITSTATUS(status);
    return said;
}

const std::string kSynth = HM16_SYNTH " ";
const std::string kSurvey = HM16_SURVEY " ";

TEST(SynthCommandLine, WritesTheRecordingThatItIsAskedFor) {
    const TempFolder folder;
    const std::string file = (folder.path() / "band.cu8").string();
    const Said said = shell(kSynth + "band " + file +
                            " --rate 1200000 --centre 98.2 --seconds 0.1 --seconds 0.2");
    EXPECT_EQ(said.code, 0) << said.text;
    EXPECT_EQ(said.text, "");
    EXPECT_EQ(std::filesystem::file_size(file), 480000u);  // two bytes a sample
}

TEST(SynthCommandLine, OfASigMfPairTheFormatCanBeChosen) {
    const TempFolder folder;
    const auto file = folder.path() / "tones.sigmf-meta";
    EXPECT_EQ(shell(kSynth + "tones " + file.string() + " --seconds 0.1 --format cf32").code, 0);
    EXPECT_THAT(folder.read("tones.sigmf-meta"), HasSubstr("cf32_le"));
}

TEST(SynthCommandLine, SaysWhatIsWrongAndEndsWithOne) {
    struct Row {
        const char* words;
        const char* fault;
    };
    for (const Row& row :
         {Row{"", "SCENE is required"}, Row{"station", "FILE is required"},
          Row{"storm x.cu8", "storm not in {station,band,rays,tones,silence}"},
          Row{"band x.cu8 --seconds", "--seconds: 1 required"},
          Row{"band x.cu8 --seconds nan", "\"nan\" is no number from 0.1 to 3600"},
          Row{"band x.cu8 --rate 5", "--rate: \"5\" is no number from"},
          Row{"band x.cu8 --format mp3", "--format: mp3 not in {cu8,cs8,cs16,cf32}"},
          Row{"band x.cu8 --loud", "not expected: --loud"},
          Row{"band x.cu8 y", "not expected: y"}}) {
        const Said said = shell(kSynth + row.words);
        EXPECT_EQ(said.code, 1) << row.words;
        EXPECT_THAT(said.text, HasSubstr("hm16-synth: ")) << row.words;
        EXPECT_THAT(said.text, HasSubstr(row.fault));
        EXPECT_THAT(said.text, HasSubstr("; --help tells more."));
    }
}

TEST(SurveyCommandLine, SaysWhatIsWrongAndEndsWithOne) {
    EXPECT_EQ(shell(kSurvey).text, "Name a settings file; --help tells more.\n");
    EXPECT_EQ(shell(kSurvey).code, 1);
    const Said odd = shell(kSurvey + "hm-16.ini --quick");
    EXPECT_EQ(odd.code, 1);
    EXPECT_THAT(odd.text, HasSubstr("not expected: --quick"));
}

TEST(SurveyCommandLine, OpensAReceiverAndNoMoreWhenItIsAskedToCheck) {
    const TempFolder folder;
    folder.write("hm-16.ini", "source = synthetic\n");
    const std::string ini = (folder.path() / "hm-16.ini").string();
    const Said said = shell(kSurvey + ini + " --check");
    EXPECT_EQ(said.code, 0) << said.text;
    EXPECT_EQ(said.text, "");
}

TEST(CommandLines, HelpNamesEveryOptionAndEndsWithNought) {
    const Said synth = shell(kSynth + "--help");
    EXPECT_EQ(synth.code, 0);
    for (const char* option : {"SCENE", "FILE", "--seconds", "--rate", "--centre", "--format"}) {
        EXPECT_THAT(synth.text, HasSubstr(option));
    }
    const Said survey = shell(kSurvey + "--help");
    EXPECT_EQ(survey.code, 0);
    for (const char* option : {"INI", "--check", "--presets", "--radios"}) {
        EXPECT_THAT(survey.text, HasSubstr(option));
    }
}

}  // namespace
}  // namespace hm16::receiver
