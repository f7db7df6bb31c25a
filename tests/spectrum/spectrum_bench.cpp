// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/spectrum/spectrum_bench.h"

#include <algorithm>

namespace hmonitor::test {

SpectrumBench::SpectrumBench(float hardwareVersion)
    : asks(forms.formNewSpectro), shows(forms.formD1), width(forms.formD1a) {
    write("halden.dat", memoryBlock({{1, "RADIO UNO", "979"}}));
    driver.hardwareVersion = hardwareVersion;
    readings.field = 70;
    start();
    takeCalls();
}

void SpectrumBench::runSpan(int item) {
    hand.click(shows.Command3D1);
    hand.select(asks.Combo1, item);
    hand.click(asks.Command3D1);
    desktop.settle();
}

void SpectrumBench::openBandwidth() {
    hand.click(formD.Image1);
    desktop.settle();
}

std::vector<std::string> SpectrumBench::printedAt(const display::PictureBox& picture, float x) {
    std::vector<std::string> texts;
    for (const display::Mark& mark : picture.drawing.marks()) {
        if (mark.kind == display::Mark::Kind::Print && mark.x1 == x) texts.push_back(mark.text);
    }
    return texts;
}

std::size_t SpectrumBench::count(const std::vector<std::string>& calls, std::string_view start) {
    return static_cast<std::size_t>(std::ranges::count_if(
        calls, [start](const std::string& call) { return call.starts_with(start); }));
}

}  // namespace hmonitor::test
