// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

namespace hmonitor {

/// The multipath meter: the figure of a window is the worst of ten samples; a lower one is cleaner.
struct MultipathMeter {
    static constexpr int kWindow = 10;
    static constexpr float kWeakField = 45;  ///< dBuV: with a weaker field nothing is judged

    int MultipathCount = 0;             ///< samples in the present window
    int MultipathWorst = 0;             ///< highest figure of the window
    bool shownBad = false;              ///< the row shows that the field is too weak
    std::optional<int> MultipathShown;  ///< last figure drawn; none before the first

    enum class Draw { Nothing, Bad, Figure };

    /// Takes a sample and returns what is to be drawn. The last call of a window only closes it.
    Draw take(int figure, float correctedField) {
        if (MultipathCount < kWindow) {
            ++MultipathCount;
            if (figure > MultipathWorst) MultipathWorst = figure;
            return Draw::Nothing;
        }
        if (correctedField < kWeakField) {
            // The window stays closed, so that the field is tested again at each call until it is
            // strong enough.
            if (shownBad) return Draw::Nothing;
            shownBad = true;
            return Draw::Bad;
        }
        const bool moved = shownBad || MultipathShown != MultipathWorst;
        shownBad = false;
        MultipathShown = MultipathWorst;
        MultipathCount = 0;
        MultipathWorst = -1;
        return moved ? Draw::Figure : Draw::Nothing;
    }

    static bool bad(int figure) { return figure >= 28; }
    static bool good(int figure) { return figure < 16; }
    /// Whether element 0 to 4 of the row is lit.
    static bool lit(int element, int figure) {
        constexpr int kBelow[] = {28, 21, 16, 11, 6};
        return figure < kBelow[element];
    }
};

}  // namespace hmonitor
