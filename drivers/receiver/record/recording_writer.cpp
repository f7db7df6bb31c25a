// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/record/recording_writer.h"

#include <sndfile.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <nlohmann/json.hpp>

namespace hm16::receiver {

// Where the samples go.
class RecordingWriter::Sink {
 public:
    virtual ~Sink() = default;
    virtual void write(std::span<const Sample> samples) = 0;
    virtual void close() = 0;
};

namespace {

template <typename Value>
void put(std::vector<std::byte>& bytes, float part, float zero, float scale, float low,
         float high) {
    const auto value = static_cast<Value>(std::lround(std::clamp(part * scale + zero, low, high)));
    const auto* from = reinterpret_cast<const std::byte*>(&value);
    bytes.insert(bytes.end(), from, from + sizeof value);
}

void putPart(SampleFormat format, float part, std::vector<std::byte>& bytes) {
    switch (format) {
        case SampleFormat::Cu8:
            return put<std::uint8_t>(bytes, part, 127.5F, 127.5F, 0, 255);
        case SampleFormat::Cs8:
            return put<std::int8_t>(bytes, part, 0, 128, -128, 127);
        case SampleFormat::Cs16:
            return put<std::int16_t>(bytes, part, 0, 32768, -32768, 32767);
        default:
            break;
    }
    const auto* from = reinterpret_cast<const std::byte*>(&part);
    bytes.insert(bytes.end(), from, from + sizeof part);
}

class RawSink : public RecordingWriter::Sink {
 public:
    RawSink(const std::filesystem::path& file, SampleFormat format)
        : name_(file.string()), format_(format), out_(file, std::ios::binary) {
        if (!out_) throw SourceError(name_ + " cannot be written.");
    }
    void write(std::span<const Sample> samples) override {
        const auto bytes = encoded(format_, samples);
        out_.write(reinterpret_cast<const char*>(bytes.data()),
                   static_cast<std::streamsize>(bytes.size()));
        if (!out_) throw SourceError(name_ + " cannot be written to its end.");
    }
    void close() override {
        out_.close();
        if (!out_) throw SourceError(name_ + " cannot be written to its end.");
    }

 private:
    std::string name_;
    SampleFormat format_;
    std::ofstream out_;
};

class SoundSink : public RecordingWriter::Sink {
 public:
    SoundSink(const RecordingPlan& plan, int kind) : name_(plan.file.string()) {
        SF_INFO info{};
        info.samplerate = static_cast<int>(std::lround(plan.rateHz));
        info.channels = 2;
        info.format = kind | SF_FORMAT_PCM_16;
        file_ = sf_open(name_.c_str(), SFM_WRITE, &info);
        if (file_ == nullptr)
            throw SourceError(name_ + " cannot be written: " + sf_strerror(nullptr));
        sf_command(file_, SFC_SET_CLIPPING, nullptr, SF_TRUE);
    }
    ~SoundSink() override {
        if (file_ != nullptr) sf_close(file_);
    }
    void write(std::span<const Sample> samples) override {
        const auto frames = static_cast<sf_count_t>(samples.size());
        const auto* values = reinterpret_cast<const float*>(samples.data());
        if (sf_writef_float(file_, values, frames) != frames)
            throw SourceError(name_ + " cannot be written to its end.");
    }
    void close() override {
        const int wrong = sf_close(file_);
        file_ = nullptr;
        if (wrong != 0) throw SourceError(name_ + " cannot be written to its end.");
    }

 private:
    std::string name_;
    SNDFILE* file_ = nullptr;
};

const char* sigmfWord(SampleFormat format) {
    switch (format) {
        case SampleFormat::Cu8:
            return "cu8";
        case SampleFormat::Cs8:
            return "ci8";
        case SampleFormat::Cs16:
            return "ci16_le";
        default:
            return "cf32_le";
    }
}

void writeMeta(const RecordingPlan& plan) {
    const nlohmann::json meta{
        {"global",
         {{"core:datatype", sigmfWord(plan.format)},
          {"core:sample_rate", plan.rateHz},
          {"core:version", "1.0.0"}}},
        {"captures",
         nlohmann::json::array({{{"core:sample_start", 0}, {"core:frequency", plan.centreHz}}})},
        {"annotations", nlohmann::json::array()}};
    std::ofstream out(plan.file, std::ios::binary);
    out << meta.dump(2) << '\n';
    out.close();
    if (!out) throw SourceError(plan.file.string() + " cannot be written.");
}

std::unique_ptr<RecordingWriter::Sink> sinkFor(const RecordingPlan& plan) {
    const std::string ending = plan.file.extension().string();
    if (const auto raw = rawFormat(ending)) return std::make_unique<RawSink>(plan.file, *raw);
    if (ending == ".wav") return std::make_unique<SoundSink>(plan, SF_FORMAT_WAV);
    if (ending == ".flac") return std::make_unique<SoundSink>(plan, SF_FORMAT_FLAC);
    if (ending != ".sigmf-meta") {
        throw SourceError(plan.file.string() +
                          " does not tell by its name what to write; .cu8, .cs8, .cs16, .cf32, "
                          ".wav, .flac and .sigmf-meta do.");
    }
    writeMeta(plan);
    std::filesystem::path data = plan.file;
    return std::make_unique<RawSink>(data.replace_extension(".sigmf-data"), plan.format);
}

}  // namespace

std::vector<std::byte> encoded(SampleFormat format, std::span<const Sample> samples) {
    std::vector<std::byte> bytes;
    bytes.reserve(samples.size() * bytesOf(format));
    for (const Sample sample : samples) {
        putPart(format, sample.real(), bytes);
        putPart(format, sample.imag(), bytes);
    }
    return bytes;
}

RecordingWriter::RecordingWriter(const RecordingPlan& plan) : sink_(sinkFor(plan)) {}

RecordingWriter::~RecordingWriter() = default;

void RecordingWriter::write(std::span<const Sample> samples) {
    sink_->write(samples);
}

void RecordingWriter::close() {
    sink_->close();
}

}  // namespace hm16::receiver
