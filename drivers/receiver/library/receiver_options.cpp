// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/library/receiver_options.h"

#include "base/number_text.h"
#include "base/plain_text.h"

#include <array>
#include <string>
#include <string_view>

namespace hm16::receiver {
namespace {

void readRecording(Settings& settings, const std::filesystem::path& folder,
                   ReceiverOptions& options) {
    const std::string file = settings.text("file", "");
    if (file.empty() && options.source == SourceKind::Recording)
        settings.addFault("file", "is missing; a recording needs it.");
    options.recording.file = folder / file;
    static constexpr std::array<const char*, 8> kFormats{"auto", "cu8",   "cs8", "cs16",
                                                         "cf32", "sigmf", "wav", "composite"};
    options.recording.format = kFormats[settings.choice(
        "format", {"auto", "cu8", "cs8", "cs16", "cf32", "sigmf", "wav", "composite"}, 0)];
    options.recording.rateHz = options.rateHz;
    options.recording.centreHz = options.centreHz;
    options.atEnd = static_cast<AtEnd>(settings.choice("loop", {"no", "yes"}, 1));
    options.compositeHzAtFullScale =
        1000 * settings.number("composite_khz_at_full_scale", 100, 1, 10000);
}

// In MHz, or in Hz where it can be nothing else: 98.2, 98.2M and 98200000 are the same.
double readCentre(Settings& settings) {
    constexpr double kHighestMhz = 6000;
    const double centre = settings.scaled("centre_mhz", 0, 0, kHighestMhz * 1e6);
    return centre <= kHighestMhz ? centre * 1e6 : centre;
}

// "key=value, key=value" into pairs.
void readDriverSettings(Settings& settings, SoapyRequest& radio) {
    const std::string text = settings.text("soapy_settings", "");
    std::string_view rest = text;
    while (!rest.empty()) {
        const auto end = rest.find(',');
        const auto pair = rest.substr(0, end);
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
        const auto equals = pair.find('=');
        const auto key = base::trimmed(pair.substr(0, equals));
        if (equals == std::string_view::npos || key.empty()) {
            settings.addFault("soapy_settings", "is " + base::inQuotes(text) +
                                                    ", but must be name=value, name=value.");
            return;
        }
        radio.settings.emplace_back(key, base::trimmed(pair.substr(equals + 1)));
    }
}

void readRadio(Settings& settings, ReceiverOptions& options) {
    SoapyRequest& radio = options.radio;
    radio.library = settings.text("soapy_library", kSoapyLibrary);
    radio.device = settings.text("soapy_device", "");
    radio.automaticGain = settings.text("gain_db", "auto") == "auto";
    if (!radio.automaticGain) radio.gainDb = settings.number("gain_db", 0, -100, 200);
    radio.antenna = settings.text("antenna", "");
    radio.bandwidthHz = 1e3 * settings.number("bandwidth_khz", 0, 0, 100000);
    radio.clockSource = settings.text("clock_source", "");
    radio.bias = settings.choice("bias", {"no", "yes"}, 0) == 1;
    if (settings.has("correction_ppm"))
        radio.correctionPpm = settings.number("correction_ppm", 0, -1000, 1000);
    readDriverSettings(settings, radio);
}

}  // namespace

ReceiverOptions readOptions(Settings& settings, const std::filesystem::path& folder) {
    ReceiverOptions options;
    options.version = static_cast<float>(settings.number("version", options.version, 0, 9.9));
    options.source =
        static_cast<SourceKind>(settings.choice("source", {"recording", "synthetic", "soapy"}, 1));
    options.pace = static_cast<Pace>(settings.choice("pace", {"real", "fast"}, 0));
    options.rateHz = settings.scaled("rate_hz", 0, 0, kHighestRateHz);
    // Of a recording the source itself says so: it may have a rate of its own.
    if (options.source != SourceKind::Recording && options.rateHz > 0 &&
        options.rateHz < kLowestBandRateHz) {
        settings.addFault("rate_hz", "is " + base::decimalText(options.rateHz, 3) +
                                         ", but a band needs at least " +
                                         base::decimalText(kLowestBandRateHz, 0) +
                                         " samples a second.");
    }
    options.centreHz = readCentre(settings);
    readRecording(settings, folder, options);
    readRadio(settings, options);
    options.dbuvAtFullScale = settings.number("dbuv_at_full_scale", 100, -100, 300);
    options.clockPpm = settings.number("clock_ppm", 0, -500, 500);
    options.deemphasisUs = settings.number("deemphasis_us", 50, 0, 100);
    options.peakEdge = static_cast<PeakEdge>(settings.choice("composite_khz", {"80", "100"}, 0));
    options.levelStepDb = settings.number("level_step_db", 1, 0, 10);
    options.listen = settings.choice("listen", {"no", "yes"}, 0) == 1;
    options.scene = static_cast<Scene>(
        settings.choice("scene", {"station", "band", "rays", "tones", "silence"}, 0));
    if (options.source == SourceKind::Soapy && options.pace == Pace::Fast)
        settings.addFault("pace", "is fast, but a radio delivers at the pace of the air.");
    return options;
}

}  // namespace hm16::receiver
