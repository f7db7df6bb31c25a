// SPDX-License-Identifier: GPL-3.0-or-later
// Recordings in every format, whole and damaged.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
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

    // The fault when opening.
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
    EXPECT_THAT(fault(request(write("empty.cu8", ""))), HasSubstr("empty.cu8 is empty."));
    EXPECT_THAT(fault(request(write("what.bin", "xx"))), HasSubstr("does not tell its format"));
    fs::create_directories(folder_ / "folder.cu8");
    EXPECT_THAT(fault(request(folder_ / "folder.cu8")), HasSubstr("is a folder"));
}

TEST_F(Recordings, APipeIsRefusedAtOnceWhateverItsFormat) {
    for (const char* name : {"pipe.cu8", "pipe.wav", "pipe.sigmf-meta"}) {
        ASSERT_EQ(mkfifo((folder_ / name).c_str(), 0600), 0);
        EXPECT_THAT(fault(request(folder_ / name)),
                    HasSubstr("is a pipe; a recording must be a file."));
    }
    EXPECT_THAT(fault([&] {
                    auto device = request("/dev/null");
                    device.format = "cu8";
                    return device;
                }()),
                HasSubstr("/dev/null is a device, not a file."));
}

TEST_F(Recordings, ACfileHoldsFloatsAndOtherEndingsNeedAFormat) {
    const auto file = write("x.cfile", bytesOfValues<float>({0.5F, -0.25F}));
    EXPECT_EQ(all(*openRecording(request(file)))[0], Sample(0.5F, -0.25F));
    for (const char* name : {"x.iq", "x.bin", "x.raw"}) {
        auto asked = request(write(name, bytesOfValues<float>({0.5F, -0.25F})));
        EXPECT_THAT(fault(asked), HasSubstr("set \"format\""));
        asked.format = "cf32";
        EXPECT_EQ(all(*openRecording(asked))[0], Sample(0.5F, -0.25F));
    }
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

TEST_F(Recordings, WhatASettingCanTellNamesItsKey) {
    const auto keyOf = [](const RecordingRequest& asked) {
        try {
            openRecording(asked);
        } catch (const MissingSetting& missing) {
            return missing.key();
        }
        return std::string("none");
    };
    auto asked = request(write("x.bin", "abcd"));
    EXPECT_EQ(keyOf(asked), "format");
    asked.format = "cu8";
    asked.rateHz = 0;
    EXPECT_EQ(keyOf(asked), "rate_hz");
    asked.rateHz = 1.2e6;
    asked.centreHz = 0;
    EXPECT_EQ(keyOf(asked), "centre_mhz");
}

constexpr const char* kMeta = R"({"global": {"core:datatype": "ci16_le",
  "core:sample_rate": 2048000, "core:version": "1.0.0"},
  "captures": [{"core:sample_start": 0, "core:frequency": 99100000}], "annotations": []})";

// A recording of ten samples I = 0.1, 0.2 ... with these captures.
constexpr const char* kTen = R"({"global": {"core:datatype": "cf32_le",
  "core:sample_rate": 1200000}, "captures": [)";

std::string tenSamples() {
    std::vector<float> parts;
    for (int n = 1; n <= 10; ++n) parts.insert(parts.end(), {0.1F * static_cast<float>(n), 0});
    return bytesOfValues<float>(parts);
}

TEST_F(Recordings, EachCaptureOfASigmfRecordingIsASegmentThatTuningChooses) {
    write("s.sigmf-data", tenSamples());
    write("s.sigmf-meta", std::string(kTen) + R"(
        {"core:sample_start": 0, "core:frequency": 98200000},
        {"core:sample_start": 4, "core:frequency": 98200000},
        {"core:sample_start": 6, "core:frequency": 104000000},
        {"core:sample_start": 90, "core:frequency": 90000000}]})");
    RecordingRequest asked;
    asked.file = folder_ / "s.sigmf-meta";
    const auto source = openRecording(asked);
    EXPECT_TRUE(source->tunable());
    EXPECT_EQ(source->centreHz(), 98.2e6);
    EXPECT_EQ(source->length(), 6u);
    std::vector<Sample> samples(2);
    EXPECT_EQ(source->read(samples), 2u);
    EXPECT_FALSE(source->retune(98.5e6));  // is in the current segment already
    EXPECT_FALSE(source->retune(90e6));    // beyond the end of the file
    EXPECT_TRUE(source->retune(103.8e6));
    EXPECT_EQ(source->centreHz(), 104e6);
    EXPECT_EQ(source->length(), 4u);
    samples.resize(10);
    EXPECT_EQ(source->read(samples), 4u);
    EXPECT_FLOAT_EQ(samples[0].real(), 0.7F);
    EXPECT_EQ(source->read(samples), 0u);
    source->rewind();
    EXPECT_EQ(source->read(samples), 4u);
    // The first segment continues where it was left.
    EXPECT_TRUE(source->retune(98.5e6));
    EXPECT_EQ(source->read(samples), 4u);
    EXPECT_FLOAT_EQ(samples[0].real(), 0.3F);
}

TEST_F(Recordings, ASegmentBeginsBehindItsHeader) {
    write("s.sigmf-data",
          "xxxxxxxx" + tenSamples().substr(0, 32) + "yyyy" + tenSamples().substr(32));
    write("s.sigmf-meta", std::string(kTen) + R"(
        {"core:sample_start": 0, "core:frequency": 98200000, "core:header_bytes": 8},
        {"core:sample_start": 4, "core:frequency": 104000000, "core:header_bytes": 4}]})");
    RecordingRequest asked;
    asked.file = folder_ / "s.sigmf-meta";
    const auto source = openRecording(asked);
    std::vector<Sample> samples(10);
    EXPECT_EQ(source->read(samples), 4u);
    EXPECT_FLOAT_EQ(samples[0].real(), 0.1F);
    EXPECT_TRUE(source->retune(104e6));
    EXPECT_EQ(source->read(samples), 6u);
    EXPECT_FLOAT_EQ(samples[0].real(), 0.5F);
}

TEST_F(Recordings, AnnotationsOfASigmfRecordingAreKeptOut) {
    write("s.sigmf-data", tenSamples());
    write("s.sigmf-meta",
          std::string(kTen) +
              R"({"core:frequency": 98200000}], "annotations": [7, {"core:sample_start":
        "everywhere", "core:frequency": -1, "captures": []}]})");
    RecordingRequest asked;
    asked.file = folder_ / "s.sigmf-meta";
    EXPECT_EQ(openRecording(asked)->length(), 10u);
}

TEST_F(Recordings, WhatCannotBeInSigmfMetadataIsOneSentenceEach) {
    write("s.sigmf-data", tenSamples());
    const auto faultOf = [&](const std::string& rate, const std::string& captures) {
        write("s.sigmf-meta", R"({"global": {"core:datatype": "cf32_le", "core:sample_rate": )" +
                                  rate + R"(}, "captures": [)" + captures + "]}");
        RecordingRequest asked;
        asked.file = folder_ / "s.sigmf-meta";
        return fault(asked);
    };
    const std::string good = R"({"core:frequency": 98200000})";
    EXPECT_THAT(faultOf("-2400000", good),
                HasSubstr("has a \"core:sample_rate\" of -2400000, which cannot be."));
    EXPECT_THAT(faultOf("0", good), HasSubstr("of 0, which cannot be."));
    EXPECT_THAT(faultOf("\"fast\"", good), HasSubstr("that is no number."));
    EXPECT_THAT(faultOf("1e300", good), HasSubstr("has a sample rate of 1e+300 Hz; from 200000"));
    EXPECT_THAT(faultOf("1e999", good), HasSubstr("is not a JSON object."));
    EXPECT_THAT(faultOf("1200000", R"({"core:frequency": "98.2"})"),
                HasSubstr("has a \"core:frequency\" that is no number."));
    EXPECT_THAT(faultOf("1200000", R"({"core:sample_start": 0.5, "core:frequency": 98200000})"),
                HasSubstr("has a \"core:sample_start\" of 0.5, which cannot be."));
    EXPECT_THAT(
        faultOf("1200000", good + R"(, {"core:sample_start": 5}, {"core:sample_start": 4})"),
        HasSubstr("captures that do not stand in their order."));
    EXPECT_THAT(faultOf("1200000", "7"), HasSubstr("has a capture that is no object."));
    EXPECT_THAT(faultOf("1200000", R"({"core:sample_start": 90, "core:frequency": 98200000})"),
                HasSubstr("s.sigmf-data holds no samples."));
}

TEST_F(Recordings, FoldersUnderNamesOfSigmfAreSaid) {
    fs::create_directories(folder_ / "a.sigmf-meta");
    EXPECT_THAT(fault(request(folder_ / "a.sigmf-meta")), HasSubstr("a.sigmf-meta is a folder"));
    write("b.sigmf-meta", kMeta);
    fs::create_directories(folder_ / "b.sigmf-data");
    EXPECT_THAT(fault(request(folder_ / "b.sigmf-meta")), HasSubstr("b.sigmf-data is a folder"));
    EXPECT_THAT(fault(request(write("c.sigmf", "tar"))), HasSubstr("is an archive; unpack it"));
}

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
    EXPECT_THAT(said("{\"global\": {\"core:datatype\": \"a\\u001b[2J\x7f\"}}"),
                HasSubstr(R"(of type "a\x1b[2J\x7f";)"));
    EXPECT_THAT(said("{\"global\": {\"core:datatype\": \"" + std::string(5000, 'y') + "\"}}"),
                HasSubstr("of type \"" + std::string(40, 'y') + "\";"));
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
    EXPECT_THAT(fault(asked), HasSubstr("1 channel; I and Q need two"));
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
