// SPDX-License-Identifier: GPL-3.0-or-later
#include <filesystem>
#include <memory>
#include <string_view>

#include "drivers/simulated/options.h"
#include "drivers/simulated/simulated_unit.h"
#include "drivers/unit/absence.h"
#include "drivers/unit/settings.h"
#include "drivers/unit/standard_error.h"
#include "drivers/unit/unit.h"

namespace hm16 {

std::unique_ptr<Unit> openUnit(const std::filesystem::path& folder, PublishedReadings& readings) {
    Settings settings = Settings::read(folder / "hm-16.ini");
    const simulated::Options options = simulated::readOptions(settings);
    const auto faults = settings.faults();
    for (const auto& fault : faults) sayOnStandardError(fault);
    if (!faults.empty()) tellAbsence(HM16_BAD_SETTING, "hm-16.ini", faults.front());
    if (!faults.empty() || options.version <= 0) return nullptr;
    // The program may change its folder later; the files stay where it was at the start.
    return std::make_unique<simulated::SimulatedUnit>(options, readings,
                                                      std::filesystem::current_path());
}

float libraryVersion() {
    return 1.0f;
}

const void* libraryExtension(std::string_view) {
    return nullptr;
}

}  // namespace hm16
