// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/samples/open_recording.h"

#include <cctype>
#include <cstdio>

#include "drivers/receiver/samples/raw_recording.h"
#include "drivers/receiver/samples/recording_file.h"
#include "drivers/receiver/samples/sigmf_recording.h"
#include "drivers/receiver/samples/sound_recording.h"

namespace hm16::receiver {
namespace {

std::string lowered(std::string text) {
    for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
}

// What the file's name says about its format.
std::string formatByName(const std::filesystem::path& file) {
    const std::string ending = lowered(file.extension().string());
    if (rawFormat(ending)) return ending.substr(1);
    if (ending == ".cfile") return "cf32";
    if (ending == ".sigmf-meta" || ending == ".sigmf-data" || ending == ".sigmf") return "sigmf";
    if (ending == ".wav" || ending == ".flac" || ending == ".w64" || ending == ".rf64")
        return "wav";
    throw MissingSetting("format", file.string() +
                                       " does not tell its format by its name; set \"format\" to "
                                       "cu8, cs8, cs16, cf32, sigmf, wav or composite.");
}

std::unique_ptr<SampleSource> openByFormat(const RecordingRequest& request) {
    const std::string format =
        request.format == "auto" ? formatByName(request.file) : lowered(request.format);
    if (const auto raw = rawFormat(format)) {
        return std::make_unique<RawRecording>(
            request.file, RawLayout{*raw, request.rateHz, {{0, request.centreHz, 0}}});
    }
    if (format == "sigmf") {
        SigmfDescription description = describeSigmf(request.file);
        if (request.rateHz > 0) description.layout.rateHz = request.rateHz;
        if (description.layout.segments.empty()) description.layout.segments.push_back({});
        if (request.centreHz > 0)
            for (auto& segment : description.layout.segments) segment.centreHz = request.centreHz;
        return std::make_unique<RawRecording>(description.data, description.layout);
    }
    if (format == "wav" || format == "composite") {
        const SoundContent content = format == "wav" ? SoundContent::Iq : SoundContent::Composite;
        return std::make_unique<SoundRecording>(request.file, content, request.rateHz,
                                                request.centreHz);
    }
    throw SourceError("\"" + request.format +
                      "\" is no format of a recording; cu8, cs8, cs16, cf32, sigmf, wav, "
                      "composite and auto are.");
}

// A rate in words, however absurd.
std::string inHz(double rate) {
    char text[40];
    std::snprintf(text, sizeof text, "%.10g Hz", rate);
    return text;
}

}  // namespace

std::unique_ptr<SampleSource> openRecording(const RecordingRequest& request) {
    requireFile(request.file);
    auto source = openByFormat(request);
    const std::string name = request.file.string();
    const bool band = source->domain() == Domain::Band;
    if (source->rateHz() <= 0)
        throw MissingSetting("rate_hz", name + " does not tell its sample rate; set \"rate_hz\".");
    const double lowest = band ? kLowestBandRateHz : kLowestCompositeRateHz;
    if (source->rateHz() < lowest || source->rateHz() > kHighestRateHz) {
        throw SourceError(name + " has a sample rate of " + inHz(source->rateHz()) + "; from " +
                          inHz(lowest) + " to " + inHz(kHighestRateHz) + " can be measured.");
    }
    if (band && source->centreHz() <= 0)
        throw MissingSetting("centre_mhz",
                             name + " does not tell its centre frequency; set \"centre_mhz\".");
    return source;
}

}  // namespace hm16::receiver
