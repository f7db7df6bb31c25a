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

// What a survey of a made-up station leaves of the memories' file, and what it says.
class SurveyPresets : public testing::Test {
 protected:
    SurveyPresets() { folder.write("hm-16.ini", "source = synthetic\nscene = station\n"); }
    Said survey(const std::filesystem::path& presets) const {
        return shell(kSurvey + (folder.path() / "hm-16.ini").string() + " --presets " +
                     presets.string());
    }
    TempFolder folder;
};

TEST_F(SurveyPresets, ThatCannotBeReadAreToldBeforeTheBandIsGoneOverAndStay) {
    // A folder, and a file in the place of a folder, are no files for an administrator either.
    std::filesystem::create_directory(folder.path() / "halden.dat");
    const Said one = survey(folder.path() / "halden.dat");
    EXPECT_EQ(one.code, 1);
    EXPECT_EQ(one.text,
              (folder.path() / "halden.dat").string() + " cannot be read: Is a directory.\n");
    folder.write("file", "names of stations");
    const Said other = survey(folder.path() / "file/halden.dat");
    EXPECT_EQ(other.code, 1);
    EXPECT_THAT(other.text, HasSubstr("file/halden.dat cannot be read: Not a directory.\n"));
    EXPECT_EQ(folder.read("file"), "names of stations");
}

TEST_F(SurveyPresets, ThatCannotBeWrittenAreTold) {
    const Said said = survey(folder.path() / "nowhere/halden.dat");
    EXPECT_EQ(said.code, 1);
    EXPECT_THAT(said.text, HasSubstr("mhz,level_dbuv,name\n"));
    EXPECT_THAT(said.text,
                HasSubstr("nowhere/halden.dat cannot be written: No such file or directory.\n"));
    EXPECT_EQ(folder.names(), std::set<std::string>{"hm-16.ini"});
}

TEST_F(SurveyPresets, TakeTheStationAndEmptyTheRest) {
    folder.write("halden.dat", std::string(320, 'x'));
    EXPECT_EQ(survey(folder.path() / "halden.dat").code, 0);
    const std::string block = folder.read("halden.dat");
    EXPECT_EQ(block.size(), 320u);
    EXPECT_EQ(block[16], '-');
    EXPECT_EQ(block.substr(27, 5), "985  ");
    EXPECT_EQ(block.substr(43, 5), "     ");
}

TEST(SurveyCommandLine, ListsRadiosALineEachWhateverTheySayOfThemselves) {
    const std::string plugins = std::filesystem::path(HM16_RADIO).parent_path().string();
    // What plug-ins of the machine say is theirs.
    const std::string list =
        "SOAPY_SDR_PLUGIN_PATH=" + plugins + " " + kSurvey + "--radios fixture 2>/dev/null; }";
    EXPECT_EQ(shell("{ " + list).text, "driver=fixture,serial=7\tTest radio 7\n");
    const Said said = shell("{ HM16_RADIO_LABEL=$(printf 'a\\033[2J\\nb\\tc') " + list);
    EXPECT_EQ(said.code, 0);
    EXPECT_EQ(said.text, "driver=fixture,serial=7\ta\\x1b[2J\\x0ab\\x09c\n");
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
