// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/analyzer/analyzer_bench.h"

#include <algorithm>
#include <filesystem>

namespace hmonitor::test {

using namespace std::chrono_literals;

AnalyzerBench::AnalyzerBench(int languageId)
    : bench(languageId),
      form(bench.forms.formSpectrumAnalizer),
      editor(bench.forms.formEditMeasurement),
      measurement(form.measurement) {
    bench.start();
}

void AnalyzerBench::open(float version) {
    bench.driver.hardwareVersion = version;
    bench.hand.click(bench.formD.Image6);
    bench.desktop.settle();
    ASSERT_TRUE(form.visible);
    bench.takeCalls();
}

void AnalyzerBench::store(const std::string& name, int sweeps, const std::string& comment) {
    std::filesystem::create_directory(bench.scratch.path() / "Logs");
    SessionInfo info = newSessionInfo(46347.75);
    info.Comment = comment;
    info.Acquisitions = sweeps;
    Density density;
    for (int x = 0; x < Density::kColumns; ++x) density.set(x, x % 60, sweeps);
    bench.write("Logs/" + name, sessionBytes(info, density));
}

void AnalyzerBench::frames(int count) {
    for (int i = 0; i < count; ++i) {
        bench.driver.frames.push_back(1);
        bench.advance(500ms);
    }
}

void AnalyzerBench::click(display::Key& key) {
    bench.hand.click(key);
    bench.desktop.settle();
}

void AnalyzerBench::click(display::Picture& key) {
    bench.hand.click(key);
    bench.desktop.settle();
}

void AnalyzerBench::choose(const std::string& session) {
    const auto& rows = form.cboCurrentMeasurementFile.list.rows();
    const auto row = std::ranges::find(rows, session);
    ASSERT_NE(row, rows.end()) << session;
    bench.hand.select(form.cboCurrentMeasurementFile, static_cast<int>(row - rows.begin()));
    bench.desktop.settle();
}

SessionInfo AnalyzerBench::storedInfo(const std::string& name) {
    SessionInfo info;
    Density density;
    EXPECT_EQ(readSession(log(name), info, density), SessionCondition::Whole) << name;
    return info;
}

std::vector<std::string> AnalyzerBench::sessions() const {
    return form.cboCurrentMeasurementFile.list.rows();
}

bool AnalyzerBench::rackEnabled() const {
    return std::ranges::all_of(bench.program.rack,
                               [](auto* panel) { return panel->enabled.get(); });
}

int AnalyzerBench::callsOf(std::string_view beginning) const {
    return static_cast<int>(std::ranges::count_if(
        bench.driver.calls, [&](const std::string& call) { return call.starts_with(beginning); }));
}

int AnalyzerBench::counted(int column, int level) const {
    return static_cast<int>(measurement.SpectralDensity.at(column, level - 30));
}

}  // namespace hmonitor::test
