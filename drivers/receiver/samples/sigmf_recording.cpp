// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/samples/sigmf_recording.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "drivers/receiver/samples/recording_file.h"
#include "drivers/unit/standard_error.h"

namespace hm16::receiver {
namespace {

using Json = nlohmann::json;

// Annotations can be longer than all else, and nothing here asks for them: they are passed over
// while the file is read.
bool isKept(int depth, Json::parse_event_t event, Json& parsed) {
    return !(depth == 1 && event == Json::parse_event_t::key && parsed == "annotations");
}

Json metadataOf(const std::filesystem::path& meta) {
    requireFile(meta);
    std::ifstream in(meta, std::ios::binary);
    if (!in) throw SourceError(meta.string() + " cannot be opened.");
    Json json = Json::parse(in, isKept, false);
    if (json.is_discarded() || !json.is_object())
        throw SourceError(meta.string() + " is not a JSON object.");
    if (!json.contains("global") || !json["global"].is_object())
        throw SourceError(meta.string() + " has no \"global\" part.");
    return json;
}

SampleFormat formatOf(const std::string& type, const std::string& name) {
    if (type == "cu8") return SampleFormat::Cu8;
    if (type == "ci8") return SampleFormat::Cs8;
    if (type == "ci16_le") return SampleFormat::Cs16;
    if (type == "cf32_le") return SampleFormat::Cf32;
    if (type == "ri16_le") return SampleFormat::Rs16;
    if (type == "rf32_le") return SampleFormat::Rf32;
    // Metadata may hold any text, also one that orders a terminal or never ends.
    constexpr std::size_t kShown = 40;
    throw SourceError(name + " has samples of type \"" + printable(type.substr(0, kShown)) +
                      "\"; cu8, ci8, ci16_le, cf32_le, ri16_le and rf32_le can be read.");
}

// A number of the metadata, 0 where it is left out; what cannot be one is a fault.
double numberOf(const Json& part, const char* key, const std::string& name) {
    const auto found = part.find(key);
    if (found == part.end()) return 0;
    if (!found->is_number()) throw SourceError(name + " has a \"" + key + "\" that is no number.");
    const double value = found->get<double>();
    if (!std::isfinite(value) || value < 0)
        throw SourceError(name + " has a \"" + key + "\" of " + found->dump() +
                          ", which cannot be.");
    return value;
}

double rateOf(const Json& global, const std::string& name) {
    const double rate = numberOf(global, "core:sample_rate", name);
    if (rate == 0 && global.contains("core:sample_rate"))
        throw SourceError(name + " has a \"core:sample_rate\" of 0, which cannot be.");
    return rate;
}

std::uint64_t countOf(const Json& part, const char* key, const std::string& name) {
    constexpr double kMost = 1e15;
    const double value = numberOf(part, key, name);
    if (value > kMost || value != std::floor(value))
        throw SourceError(name + " has a \"" + key + "\" of " + part[key].dump() +
                          ", which cannot be.");
    return static_cast<std::uint64_t>(value);
}

std::vector<RawSegment> segmentsOf(const Json& json, const std::string& name) {
    std::vector<RawSegment> segments;
    const auto captures = json.find("captures");
    if (captures == json.end() || !captures->is_array()) return segments;
    for (const Json& capture : *captures) {
        if (!capture.is_object()) throw SourceError(name + " has a capture that is no object.");
        const RawSegment segment{countOf(capture, "core:sample_start", name),
                                 numberOf(capture, "core:frequency", name),
                                 countOf(capture, "core:header_bytes", name)};
        if (!segments.empty() && segment.start < segments.back().start)
            throw SourceError(name + " has captures that do not stand in their order.");
        segments.push_back(segment);
    }
    return segments;
}

}  // namespace

SigmfDescription describeSigmf(const std::filesystem::path& file) {
    if (file.extension() == ".sigmf")
        throw SourceError(file.string() + " is an archive; unpack it and name the .sigmf-meta.");
    std::filesystem::path stem = file;
    if (stem.extension() == ".sigmf-meta" || stem.extension() == ".sigmf-data")
        stem.replace_extension();
    const std::filesystem::path meta = stem.string() + ".sigmf-meta";
    const std::string name = meta.string();
    const Json json = metadataOf(meta);
    const Json& global = json["global"];
    if (!global.contains("core:datatype") || !global["core:datatype"].is_string())
        throw SourceError(name + " does not say \"core:datatype\".");
    SigmfDescription result;
    result.data = stem.string() + ".sigmf-data";
    result.layout.format = formatOf(global["core:datatype"].get<std::string>(), name);
    result.layout.rateHz = rateOf(global, name);
    if (global.contains("core:num_channels") && numberOf(global, "core:num_channels", name) != 1)
        throw SourceError(name + " has several channels; one can be read.");
    result.layout.segments = segmentsOf(json, name);
    return result;
}

}  // namespace hm16::receiver
