// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/performance/log_bench.h"

#include <stdexcept>

namespace hmonitor::test {

LogBench::LogBench(int languageId, Brand brand)
    : RackBench(languageId, brand), charts(forms.formD4A), text(forms.form15), page(forms.form4) {
    write("20260302.log", countingLog(0, 24));
    write("20260303.log", countingLog(5, 3));
    write("20260304.log", "7 20 -12 7 190 6 60 301 11 12 \r\n8 A A A A A A A A A \r\n");
    start();
    desktop.settle();
}

void LogBench::open() {
    hand.click(formD.Image4);
    desktop.settle();
}

void LogBench::openText() {
    open();
    hand.click(charts.SSCommand2);
    desktop.settle();
}

void LogBench::choose(std::string_view day) {
    const auto& rows = charts.Combo1.list.rows();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (rows[i] != day) continue;
        hand.select(charts.Combo1, static_cast<int>(i));
        desktop.settle();
        return;
    }
    throw std::runtime_error("no such day: " + std::string(day));
}

std::string countingLog(int first, int hours) {
    std::string bytes;
    for (int hour = first; hour < first + hours; ++hour) {
        bytes += std::to_string(hour) + " ";
        for (int field = 1; field <= 9; ++field) bytes += std::to_string(field + hour) + " ";
        bytes += "\r\n";
    }
    return bytes;
}

}  // namespace hmonitor::test
