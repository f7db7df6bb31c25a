// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "core/small_text.h"

namespace hmonitor {

/// The state that the forms share: the tuned station and what the panels are doing. Nearly all of
/// it is text, numbers included, because forms compare it with words such as "si", "sisi" and "xx";
/// it becomes a number (`valueOf`) where it is used. It lives as long as the program.
struct StationState {
    SmallText HalfStep;         ///< "5" when tuned to a 50 kHz half step, else "0"
    SmallText Band;             ///< "FM" once the rack is loaded
    SmallText HardwareVersion;  ///< number given by the unit; "0" means that none answered
    SmallText StationName;      ///< of the loaded memory, 9 characters
    SmallText MemoryFreq;       ///< of the loaded memory, 100 kHz units: "1025", "1025.5"
    SmallText DemoMode;         ///< "si" without a unit, else empty
    SmallText ResponseAuto;     ///< "si" while stored pilot figures stand in for the live ones
    SmallText FirstSelect;      ///< empty, "1" after load, "00" after the first preset selection
    SmallText MemoryNumber;     ///< current preset
    SmallText DbCorrection10;   ///< field correction in tenths of a dB
    SmallText ResponseState;    ///< "0", "si" asked for, "sisi" armed, "no" read or cancelled
    SmallText ModSettle;        ///< "5"; "0" makes the modulation bar refill at once
    SmallText CurrentFreq;      ///< frequency in use, 100 kHz units; while the preset editor
                                ///< comes up it carries the memory number instead; files are
                                ///< named from `Form_B.TunedFreq`
    SmallText FloorNoiseL;      ///< floor of the left noise readout, "xx" for none
    SmallText FloorNoiseR;      ///< same, right
    SmallText FloorSepL;        ///< floor of the left separation readout, whole dB, "0" for none
    SmallText FloorSepR;        ///< same, right
    SmallText FloorThd;         ///< floor of the distortion readout in hundredths of a percent
    SmallText PowerText;        ///< last relative power
    SmallText TuneTag;          ///< whole number drawn at random at each tuning
    SmallText MemoryEdit;       ///< "1" when the memory editor opens to store the frequency
    SmallText MemoryEditFreq;   ///< frequency handed to the memory editor, 100 kHz units
    SmallText RadioName;        ///< name shown in `Label_RadioName` of `Form_B`
    float DemoPeak = 0;         ///< modulation at this instant, percent of 75 kHz
    float ModBar = 0;           ///< held peak of modulation, percent
};

}  // namespace hmonitor
