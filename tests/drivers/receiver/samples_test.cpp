// SPDX-License-Identifier: GPL-3.0-or-later
// Recordings in every format, whole and damaged.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <limits>

#include "drivers/receiver/record/recording_writer.h"
#include "drivers/receiver/samples/open_recording.h"
#include "tests/drivers/receiver/recording_bytes.h"

namespace hm16::receiver {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

class Recordings : public testing::Test {
 protected:
    Recordings() : folder_(fs::temp_directory_path() / ("hm16_rec_" + std::to_string(getpid()))) {
        fs::create_directories(folder_);
    }
    ~Recordings() override { fs::remove_all(folder_); }

    fs::path write(const std::string& name, const std::string& bytes) const {
        std::ofstream(folder_ / name, std::ios::binary) << bytes;
        return folder_ / name;
    }

    static RecordingRequest request(const fs::path& file) {
        RecordingRequest result;
        result.file = file;
        result.rateHz = 1.2e6;
        result.centreHz = 98e6;
        return result;
    }

    static std::vector<Sample> all(SampleSource& source) {
        std::vector<Sample> samples(100);
        samples.resize(source.read(samples));
        return samples;
    }

    // What opening says.
    static std::string fault(const RecordingRequest& request) {
        try {
            openRecording(request);
        } catch (const SourceError& error) {
            return error.what();
        }
        return "";
    }

    const fs::path folder_;
};

TEST_F(Recordings, RawFormatsReadAtTheirScale) {
    const auto first = [&](const fs::path& file) { return all(*openRecording(request(file)))[0]; };
    EXPECT_EQ(first(write("a.cu8", std::string("\xFF\x00", 2))), Sample(1, -1));
    EXPECT_EQ(first(write("a.cs8", std::string("\x40\x80", 2))), Sample(0.5F, -1));
    EXPECT_EQ(first(write("a.cs16", bytesOfValues<std::int16_t>({16384, -32768}))),
              Sample(0.5F, -1));
    EXPECT_EQ(first(write("a.cf32", bytesOfValues<float>({0.25F, -2}))), Sample(0.25F, -2));
}

TEST_F(Recordings, ASampleThatWasCutIsNotRead) {
    for (std::size_t length = 1; length <= 24; ++length) {
        const auto file = write("cut.cf32", std::string(length, '\0'));
        if (length < 8) {
            EXPECT_THAT(fault(request(file)), HasSubstr("holds no samples"));
        } else {
            EXPECT_EQ(all(*openRecording(request(file))).size(), length / 8);
        }
    }
}

TEST_F(Recordings, SamplesThatAreNoNumbersBecomeZeroAndAreCounted) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float infinity = std::numeric_limits<float>::infinity();
    const auto source = openRecording(
        request(write("bad.cf32", bytesOfValues<float>({1, 2, nan, 1, 0, -infinity, 3, 4}))));
    EXPECT_EQ(all(*source), (std::vector<Sample>{{1, 2}, {0, 0}, {0, 0}, {3, 4}}));
    EXPECT_EQ(source->badSamples(), 2U);
}

TEST_F(Recordings, RewindReadsTheSameAgain) {
    const auto source = openRecording(request(write("r.cu8", "abcdef")));
    const auto once = all(*source);
    EXPECT_TRUE(all(*source).empty());
    source->rewind();
    EXPECT_EQ(all(*source), once);
    EXPECT_EQ(source->length(), 3U);
}

TEST_F(Recordings, MissingEmptyAndUnknownFilesAreOneSentence) {
    EXPECT_THAT(fault(request(folder_ / "none.cu8")), HasSubstr("none.cu8 cannot be opened"));
    EXPECT_THAT(fault(request(write("empty.cu8", ""))), HasSubstr("empty.cu8 holds no samples."));
    EXPECT_THAT(fault(request(write("what.bin", "xx"))), HasSubstr("does not tell its format"));
    fs::create_directories(folder_ / "folder.cu8");
    EXPECT_THAT(fault(request(folder_ / "folder.cu8")), HasSubstr("is a folder"));
}

TEST_F(Recordings, RateAndCentreMustBeKnownAndSensible) {
    const auto file = write("x.cu8", "abcd");
    auto wrong = request(file);
    wrong.rateHz = 0;
    EXPECT_THAT(fault(wrong), HasSubstr("set \"rate_hz\""));
    wrong.rateHz = 48000;
    EXPECT_THAT(fault(wrong), HasSubstr("48000 Hz"));
    wrong = request(file);
    wrong.centreHz = 0;
    EXPECT_THAT(fault(wrong), HasSubstr("set \"centre_mhz\""));
}

constexpr const char* kMeta = R"({"global": {"core:datatype": "ci16_le",
  "core:sample_rate": 2048000, "core:version": "1.0.0"},
  "captures": [{"core:sample_start": 0, "core:frequency": 99100000}], "annotations": []})";

TEST_F(Recordings, SigmfTellsFormatRateAndCentre) {
    write("s.sigmf-data", bytesOfValues<std::int16_t>({32767, 0}));
    for (const char* name : {"s.sigmf-meta", "s.sigmf-data"}) {
        write("s.sigmf-meta", kMeta);
        RecordingRequest asked;
        asked.file = folder_ / name;
        const auto source = openRecording(asked);
        EXPECT_EQ(source->rateHz(), 2.048e6);
        EXPECT_EQ(source->centreHz(), 99.1e6);
        EXPECT_NEAR(all(*source)[0].real(), 1, 1e-4);
    }
}

TEST_F(Recordings, SigmfThatIsDamagedSaysHow) {
    write("s.sigmf-data", "abcd");
    const auto said = [&](const std::string& meta) {
        RecordingRequest asked;
        asked.file = write("s.sigmf-meta", meta);
        return fault(asked);
    };
    EXPECT_THAT(said("{"), HasSubstr("is not a JSON object"));
    EXPECT_THAT(said("[]"), HasSubstr("is not a JSON object"));
    EXPECT_THAT(said("{}"), HasSubstr("no \"global\""));
    EXPECT_THAT(said(R"({"global": {}})"), HasSubstr("core:datatype"));
    EXPECT_THAT(said(R"({"global": {"core:datatype": "cf32_be"}})"), HasSubstr("cf32_be"));
    EXPECT_THAT(said(R"({"global": {"core:datatype": "cu8"}})"), HasSubstr("rate_hz"));
    for (std::size_t length = 0; length < std::strlen(kMeta); ++length)
        EXPECT_NE(said(std::string(kMeta, length)), "");
}

TEST_F(Recordings, SoundFilesHoldIqInTwoChannelsOrACompositeInTheFirst) {
    auto asked = request(write("iq.wav", wav(2, 1200000, {16384, -16384})));
    asked.rateHz = 0;
    const auto iq = openRecording(asked);
    EXPECT_EQ(iq->domain(), Domain::Band);
    EXPECT_EQ(iq->rateHz(), 1.2e6);
    EXPECT_EQ(all(*iq)[0], Sample(0.5F, -0.5F));
    asked = request(write("mpx.wav", wav(1, 192000, {8192})));
    EXPECT_THAT(fault(asked), HasSubstr("1 channels; I and Q need two"));
    asked.format = "composite";
    asked.rateHz = 0;
    asked.centreHz = 0;
    const auto composite = openRecording(asked);
    EXPECT_EQ(composite->domain(), Domain::Composite);
    EXPECT_EQ(all(*composite)[0], Sample(0.25F, 0));
    EXPECT_THAT(fault(request(write("not.wav", "no sound"))), HasSubstr("not.wav"));
}

TEST_F(Recordings, WhatIsWrittenIsReadBackInEveryForm) {
    const std::vector<Sample> samples{{0.5F, -0.25F}, {-1, 1}, {0.125F, 0}, {0, 0}};
    for (const auto& [name, step] :
         std::vector<std::pair<std::string, float>>{{"w.cu8", 1 / 127.5F},
                                                    {"w.cs8", 1 / 128.0F},
                                                    {"w.cs16", 1 / 32768.0F},
                                                    {"w.cf32", 0},
                                                    {"w.wav", 1 / 32768.0F},
                                                    {"w.flac", 1 / 32768.0F},
                                                    {"w.sigmf-meta", 1 / 32768.0F}}) {
        RecordingPlan plan;
        plan.file = folder_ / name;
        plan.rateHz = 600e3;
        plan.centreHz = 98e6;
        RecordingWriter writer(plan);
        writer.write(samples);
        writer.close();
        auto asked = request(plan.file);
        asked.rateHz = 600e3;
        const auto source = openRecording(asked);
        EXPECT_EQ(source->length(), samples.size()) << name;
        EXPECT_EQ(source->rateHz(), 600e3) << name;
        const auto back = all(*source);
        ASSERT_EQ(back.size(), samples.size()) << name;
        for (std::size_t n = 0; n < samples.size(); ++n)
            EXPECT_LE(std::abs(back[n] - samples[n]), 1.5F * step) << name << ", " << n;
    }
}

TEST_F(Recordings, WhatCannotBeWrittenIsSaid) {
    const auto said = [](const fs::path& file) {
        RecordingPlan plan;
        plan.file = file;
        plan.rateHz = 600e3;
        try {
            RecordingWriter writer(plan);
        } catch (const SourceError& error) {
            return std::string(error.what());
        }
        return std::string();
    };
    EXPECT_THAT(said(folder_ / "x.mp3"), HasSubstr("x.mp3 does not tell by its name"));
    for (const char* name : {"no/x.cu8", "no/x.wav", "no/x.sigmf-meta"})
        EXPECT_THAT(said(folder_ / name), HasSubstr("cannot be written"));
}

}  // namespace
}  // namespace hm16::receiver
