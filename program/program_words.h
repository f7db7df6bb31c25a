// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "core/small_text.h"

namespace hmonitor {

enum class Brand { Marvenia, Teskel };

/// The words that hold for the whole program.
struct ProgramWords {
    std::int16_t gStation = 0;   ///< index of the station in use; there is one
    SmallText gLanguage;         ///< "ES" on a Spanish system, else "IN"
    SmallText gBrand;            ///< brand of printed headers: "Marvenia" or "Teskel"
    SmallText gModel;            ///< model of printed headers
    float gHardwareVersion = 0;  ///< 0 means that no unit answered
};

/// Why no driver library was loaded, as one sentence with its file; empty if it was.
struct LibraryFault {
    std::string spanish;
    std::string english;
};

/// What the rack's head says of the history while nothing worse is to be said: why it records
/// nothing, or less. Empty as a rule.
struct HistoryNotice {
    std::string spanish;
    std::string english;
};

/// The working folder, where the program was started in it for the first time and it is not the
/// program's own; else empty.
struct FirstFolder {
    std::string path;
};

/// The card of the first start.
struct FirstStart {
    bool showsCard = false;
    std::function<void()> onRead;  ///< the user has put it away
};

}  // namespace hmonitor
