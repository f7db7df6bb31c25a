// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/rack_bench.h"

namespace hmonitor::test {

/// The measuring rack with the analyzer, and its sessions in a temporary folder.
class AnalyzerBench : public testing::Test {
 protected:
    explicit AnalyzerBench(int languageId = RackBench::kEnglish);

    /// Opens the window by its key, and clears the journal of driver calls.
    void open(float version = 1.8f);
    /// Stores a session of that many sweeps, in which each column has all its counts at one level.
    void store(const std::string& name, int sweeps, const std::string& comment = "stored");
    /// Delivers frames, one at each tick of 500 ms.
    void frames(int count);
    void click(display::Key& key);
    void click(display::Picture& key);
    void choose(const std::string& session);

    /// The session as its file holds it.
    SessionInfo storedInfo(const std::string& name);
    bool hasLog(const std::string& name) const { return bench.exists("Logs/" + name); }
    std::string log(const std::string& name) const { return bench.read("Logs/" + name); }
    std::vector<std::string> sessions() const;
    bool rackEnabled() const;
    int callsOf(std::string_view beginning) const;
    int counted(int column, int level) const;

    RackBench bench;
    frmSpectrumAnalizer& form;
    frmEditMeasurement& editor;
    Measurement& measurement;
};

}  // namespace hmonitor::test
