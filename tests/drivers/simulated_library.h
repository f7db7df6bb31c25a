// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/drivers/loaded_library.h"

// The simulated unit.
class SimulatedLibrary : public LoadedLibrary {
 public:
    explicit SimulatedLibrary(std::string_view settings)
        : LoadedLibrary(HM16_SIMULATED, settings) {}
};
