// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/library/receiver_options.h"

#include <array>

#include "drivers/unit/number_text.h"

namespace hm16::receiver {
namespace {

#if defined(_WIN32)
constexpr const char* kSoapyLibrary = "SoapySDR.dll";
#elif defined(__APPLE__)
constexpr const char* kSoapyLibrary = "libSoapySDR.0.8.dylib";
#else
constexpr const char* kSoapyLibrary = "libSoapySDR.so.0.8";
#endif

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

void readRadio(Settings& settings, ReceiverOptions& options) {
    options.soapyLibrary = settings.text("soapy_library", kSoapyLibrary);
    options.soapyDevice = settings.text("soapy_device", "");
    options.automaticGain = settings.text("gain_db", "auto") == "auto";
    if (!options.automaticGain) options.gainDb = settings.number("gain_db", 0, -100, 200);
}

}  // namespace

ReceiverOptions readOptions(Settings& settings, const std::filesystem::path& folder) {
    ReceiverOptions options;
    options.version = static_cast<float>(settings.number("version", options.version, 0, 9.9));
    options.source =
        static_cast<SourceKind>(settings.choice("source", {"recording", "synthetic", "soapy"}, 1));
    options.pace = static_cast<Pace>(settings.choice("pace", {"real", "fast"}, 0));
    options.rateHz = settings.number("rate_hz", 0, 0, kHighestRateHz);
    // Of a recording the source itself says so: it may have a rate of its own.
    if (options.source != SourceKind::Recording && options.rateHz > 0 &&
        options.rateHz < kLowestBandRateHz) {
        settings.addFault("rate_hz", "is " + decimalText(options.rateHz, 3) +
                                         ", but a band needs at least " +
                                         decimalText(kLowestBandRateHz, 0) + " samples a second.");
    }
    options.centreHz = 1e6 * settings.number("centre_mhz", 0, 0, 6000);
    readRecording(settings, folder, options);
    readRadio(settings, options);
    options.dbuvAtFullScale = settings.number("dbuv_at_full_scale", 100, -100, 300);
    options.clockPpm = settings.number("clock_ppm", 0, -500, 500);
    options.deemphasisUs = settings.number("deemphasis_us", 50, 0, 100);
    options.levelStepDb = settings.number("level_step_db", 1, 0, 10);
    options.scene = static_cast<Scene>(
        settings.choice("scene", {"station", "band", "rays", "tones", "silence"}, 0));
    if (options.source == SourceKind::Soapy && options.pace == Pace::Fast)
        settings.addFault("pace", "is fast, but a radio delivers at the pace of the air.");
    return options;
}

}  // namespace hm16::receiver
