// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/samples/sigmf_recording.h"

#include <cmath>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string>

namespace hm16::receiver {
namespace {

using Json = nlohmann::json;

Json metadataOf(const std::filesystem::path& meta) {
    std::ifstream in(meta, std::ios::binary);
    if (!in) throw SourceError(meta.string() + " cannot be opened.");
    Json json = Json::parse(in, nullptr, false);
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
    throw SourceError(name + " has samples of type \"" + type +
                      "\"; cu8, ci8, ci16_le, cf32_le, ri16_le and rf32_le can be read.");
}

double numberOf(const Json& part, const char* key, double fallback) {
    const auto found = part.find(key);
    return found != part.end() && found->is_number() ? found->get<double>() : fallback;
}

}  // namespace

SigmfDescription describeSigmf(const std::filesystem::path& file) {
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
    result.layout.rateHz = numberOf(global, "core:sample_rate", 0);
    if (numberOf(global, "core:num_channels", 1) != 1)
        throw SourceError(name + " has several channels; one can be read.");
    const auto captures = json.find("captures");
    if (captures != json.end() && captures->is_array() && !captures->empty() &&
        captures->front().is_object()) {
        result.layout.centreHz = numberOf(captures->front(), "core:frequency", 0);
        const double header = numberOf(captures->front(), "core:header_bytes", 0);
        if (header > 0 && header < 1e12)
            result.layout.headerBytes = static_cast<std::uint64_t>(header);
    }
    return result;
}

}  // namespace hm16::receiver
