// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/library/open_source.h"

#include "drivers/receiver/library/scenes.h"
#include "drivers/receiver/radio/soapy_source.h"
#include "drivers/receiver/synth/band_generator.h"

namespace hm16::receiver {
namespace {

constexpr double kRadioRateHz = 2.4e6;
constexpr double kRadioCentreHz = 98e6;

}  // namespace

std::unique_ptr<SampleSource> openSource(const ReceiverOptions& options) {
    switch (options.source) {
        case SourceKind::Recording:
            return openRecording(options.recording);
        case SourceKind::Synthetic:
            return std::make_unique<BandGenerator>(
                sceneOf(options.scene, options.rateHz, options.centreHz));
        case SourceKind::Soapy:
            break;
    }
    SoapyRequest request = options.radio;
    request.rateHz = options.rateHz > 0 ? options.rateHz : kRadioRateHz;
    request.centreHz = options.centreHz > 0 ? options.centreHz : kRadioCentreHz;
    return std::make_unique<SoapySource>(request);
}

std::string nameOf(const ReceiverOptions& options) {
    switch (options.source) {
        case SourceKind::Recording:
            return options.recording.file.string();
        case SourceKind::Synthetic:
            return "the synthetic signal";
        case SourceKind::Soapy:
            break;
    }
    return "the radio \"" + options.radio.device + "\"";
}

}  // namespace hm16::receiver
