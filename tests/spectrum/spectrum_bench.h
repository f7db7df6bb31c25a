// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/rack_bench.h"

namespace hmonitor::test {

/// A started rack on 97.9 MHz and the three spectrum windows. The carrier reads 70 dB.
class SpectrumBench : public RackBench {
 public:
    explicit SpectrumBench(float hardwareVersion = 1.5f);

    /// Measures with an item of the list of spans.
    void runSpan(int item);
    /// Opens the bandwidth window from the analyses panel.
    void openBandwidth();
    /// The texts on a picture at this x, from top to bottom.
    static std::vector<std::string> printedAt(const display::PictureBox& picture, float x);
    static std::size_t count(const std::vector<std::string>& calls, std::string_view start);

    hmonitor::Form_NewSpectro& asks;
    hmonitor::Form_D1& shows;
    hmonitor::FormD1a& width;
};

}  // namespace hmonitor::test
