// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as each of the working folder's files of lines: what is read of them is what stands
// there, and a rewrite of one line leaves the others.
#include <cmath>
#include <cstdint>

#include "core/panel_settings.h"
#include "core/response_switch.h"
#include "core/results_file.h"
#include "core/station_defaults.h"
#include "tests/fuzz/check.h"
#include "tests/support/temp_folder.h"

namespace {

using namespace hmonitor;

void checkPanelSettings(const Files& files) {
    for (const PanelLine last : {PanelLine::DbCorrection, PanelLine::ScannerOffset}) {
        const auto settings = PanelSettings::read(files, last);
        if (!settings) continue;
        FUZZ_CHECK(std::isfinite(settings->value(last)));
        if (last != PanelLine::ScannerOffset) continue;
        FUZZ_CHECK(!settings->with(PanelLine::AudioMode, "1").write(files));
        const auto again = PanelSettings::read(files, last);
        FUZZ_CHECK(again && again->value(PanelLine::AudioMode) == 1);
        for (int n = 1; n <= 8; ++n) {
            const auto line = static_cast<PanelLine>(n);
            if (line != PanelLine::AudioMode) FUZZ_CHECK(again->line(line) == settings->line(line));
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const test::TempFolder folder;
    static const Files files(folder.path());
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    for (const char* name : {"hm-16.dat", "Hm-res.dat", "normal.hm", "0985.dat"})
        folder.write(name, bytes);
    checkPanelSettings(files);
    if (const auto armed = ResponseSwitch::read(files, SwitchLine::PilotLevel))
        FUZZ_CHECK(std::isfinite(armed->value(SwitchLine::PilotLevel)));
    (void)StationDefaults::read(files);
    StationState state;
    ResultsFile::read(files, 985).putFloors(state);
    FUZZ_CHECK(!state.FloorNoiseL.empty() || size > 0);
    return 0;
}
