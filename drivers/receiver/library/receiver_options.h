// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>

#include "drivers/receiver/chain/demodulator.h"
#include "drivers/receiver/radio/soapy_radio.h"
#include "drivers/receiver/samples/open_recording.h"
#include "drivers/unit/settings.h"

namespace hm16::receiver {

enum class SourceKind { Recording, Synthetic, Soapy };
enum class Pace {
    Real,  // as on the air
    Fast,  // as fast as it is driven step by step, or as fast as the machine can
};
enum class AtEnd { Stop, Loop };
enum class Scene { Station, Band, Rays, Tones, Silence };

// The receiver's settings in hm-16.ini; docs/receiver.md lists the keys.
struct ReceiverOptions {
    float version = 1.8F;
    SourceKind source = SourceKind::Synthetic;
    RecordingRequest recording;
    AtEnd atEnd = AtEnd::Loop;
    Pace pace = Pace::Real;
    double rateHz = 0;    // 0: as the source says
    double centreHz = 0;  // 0: as the source says
    double dbuvAtFullScale = 100;
    double clockPpm = 0;
    double deemphasisUs = 50;
    PeakEdge peakEdge = PeakEdge::At80;
    double levelStepDb = 1;
    double compositeHzAtFullScale = 100e3;
    Scene scene = Scene::Station;
    bool listen = false;  // play the tuned station on the machine's loudspeakers
    SoapyRequest radio;   // its rate and centre are the fields above
};

// Reads the options from a settings file in `folder`; file names in it are relative to that folder.
// Faults are in settings.faults() afterwards.
ReceiverOptions readOptions(Settings& settings, const std::filesystem::path& folder);

}  // namespace hm16::receiver
