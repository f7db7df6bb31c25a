// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <vector>

#include "tests/acts/called_driver.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {

/// A kind of unit: the version that it reports at the start, and the one that it reports
/// afterwards.
struct UnitKind {
    const char* name;
    float atStart;
    float later;
};

/// Points (older than the frames), frames, points (newer than the frames), no unit (demo mode), and
/// a unit that stops reporting its version.
inline constexpr std::array<UnitKind, 5> kUnitKinds{{{"Points", 1.5f, 1.5f},
                                                     {"Frames", 1.8f, 1.8f},
                                                     {"PointsAgain", 2.0f, 2.0f},
                                                     {"Demo", 0, 0},
                                                     {"GoneSilent", 1.8f, 0}}};

/// The whole program, measuring, on a unit of the given kind.
class RunBench : public RackBench {
 public:
    explicit RunBench(const UnitKind& kind, int languageId = kEnglish);
    CalledDriver& called;

    bool inDemoMode() const { return state.DemoMode == "si"; }
    void wait(int milliseconds) { advance(std::chrono::milliseconds(milliseconds)); }
    /// All windows except the four panels.
    std::vector<display::Form*> windows() const;
};

/// A run that calls the driver, from the key that opens its window to its end.
struct RunKind {
    const char* name;
    void (*go)(RunBench&);
    /// The keys that begin and end it.
    std::vector<display::Control*> (*ownKeys)(RunBench&);
};
const std::vector<RunKind>& runKinds();

}  // namespace hmonitor::test
