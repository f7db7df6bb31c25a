// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/analyses/scanner_bench.h"

#include <algorithm>

#include "core/numbers.h"

namespace hmonitor::test {

using namespace std::chrono_literals;

ScannerBench::ScannerBench()
    : scanner(bench.forms.formBandSCanner), page(bench.forms.formPrintBandScan) {
    bench.start();
    for (int hundredths = 8600; hundredths <= 10900; hundredths += 5) {
        bench.driver.spectrum[static_cast<float>(hundredths) / 10.f] =
            static_cast<float>(levelAt(hundredths));
    }
}

void ScannerBench::open(float version) {
    bench.driver.hardwareVersion = version;
    bench.hand.click(bench.formD.Image2);
    bench.desktop.settle();
    ASSERT_TRUE(scanner.visible);
    bench.takeCalls();
}

display::Option& ScannerBench::option(ScanSpacing spacing) {
    switch (spacing) {
        case ScanSpacing::Odd:
            return scanner.Option_Impares;
        case ScanSpacing::Even:
            return scanner.Option_Pares;
        case ScanSpacing::Quarter:
            return scanner.Option_250Khz;
        case ScanSpacing::All:
            break;
    }
    return scanner.Option_All;
}

void ScannerBench::choose(ScanSpacing spacing) {
    for (const TableCell& cell : tableFill("option", spacing).cells)
        bench.driver.superLevels.push_back(static_cast<float>(levelAt(cell.hundredths)));
    bench.hand.choose(option(spacing));
    bench.desktop.settle();
    bench.driver.superLevels.clear();
}

void ScannerBench::click(display::Key& key) {
    bench.hand.click(key);
    bench.desktop.settle();
}

void ScannerBench::run(std::function<void(float)> during) {
    for (const TableCell& cell : tableFill("run", scanner.option().spacing).cells)
        bench.driver.superLevels.push_back(static_cast<float>(levelAt(cell.hundredths)));
    bench.driver.duringSuper = std::move(during);
    click(scanner.Command3D1);
    bench.driver.duringSuper = nullptr;
    bench.driver.superLevels.clear();
}

void ScannerBench::frames(int count) {
    for (int i = 0; i < count; ++i) {
        bench.driver.frames.push_back(1);
        bench.advance(250ms);
    }
}

void ScannerBench::expectLevels(const TableFill& table, int added) {
    for (const TableCell& at : table.cells) {
        const std::string level = shortText(levelAt(at.hundredths) + added).str();
        ASSERT_EQ(scanner.Graph1.dataAt(at.cell.row, at.cell.column), level)
            << table.fill << " " << nameOf(table.spacing) << " " << at.hundredths;
        ASSERT_EQ(page.Graph1.dataAt(at.cell.row, at.cell.column), level);
    }
}

std::string ScannerBench::storedLevels(const TableFill& table, int added) const {
    std::vector<std::string> levels;
    for (const TableCell& at : table.cells)
        levels.push_back(shortText(levelAt(at.hundredths) + added).str());
    return lines(levels);
}

std::vector<std::string> ScannerBench::supers(const TableFill& table) const {
    std::vector<std::string> calls;
    for (const TableCell& at : table.cells)
        calls.push_back("HM_Super(" + shortText(at.hundredths / 10.).str() + ")");
    return calls;
}

bool ScannerBench::rackEnabled() const {
    return std::ranges::all_of(bench.program.rack,
                               [](auto* panel) { return panel->enabled.get(); });
}

bool ScannerBench::rackDisabled() const {
    return std::ranges::none_of(bench.program.rack,
                                [](auto* panel) { return panel->enabled.get(); });
}

int ScannerBench::callsOf(std::string_view beginning) {
    return static_cast<int>(std::ranges::count_if(
        bench.driver.calls, [&](const std::string& call) { return call.starts_with(beginning); }));
}

}  // namespace hmonitor::test
