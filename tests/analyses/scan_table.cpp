// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/analyses/scan_table.h"

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace hmonitor::test {

namespace {

ScanSpacing spacingOf(const std::string& name) {
    for (const ScanSpacing spacing : kAllSpacings) {
        if (name == nameOf(spacing)) return spacing;
    }
    throw std::runtime_error("scan_cells.txt: no such choice: " + name);
}

TableFill parse(const std::string& line) {
    std::istringstream in(line);
    TableFill fill;
    std::string name;
    std::size_t count = 0;
    in >> fill.fill >> name >> count;
    fill.spacing = spacingOf(name);
    int row = 0;
    int column = 0;
    double mhz = 0;
    char comma = 0;
    while (in >> row >> comma >> column >> comma >> mhz)
        fill.cells.push_back({{row, column}, static_cast<int>(std::lround(mhz * 100))});
    if (fill.cells.size() != count) throw std::runtime_error("scan_cells.txt: torn: " + line);
    return fill;
}

}  // namespace

const char* nameOf(ScanSpacing spacing) {
    switch (spacing) {
        case ScanSpacing::Odd:
            return "odd";
        case ScanSpacing::Even:
            return "even";
        case ScanSpacing::Quarter:
            return "quarter";
        case ScanSpacing::All:
            break;
    }
    return "all";
}

const std::vector<TableFill>& scanTable() {
    static const std::vector<TableFill> kTable = [] {
        std::ifstream file(HMONITOR_SOURCE_DIR "/tests/analyses/scan_cells.txt");
        std::vector<TableFill> table;
        std::string line;
        while (std::getline(file, line)) table.push_back(parse(line));
        return table;
    }();
    return kTable;
}

const TableFill& tableFill(const std::string& fill, ScanSpacing spacing) {
    for (const TableFill& line : scanTable()) {
        if (line.fill == fill && line.spacing == spacing) return line;
    }
    throw std::runtime_error("scan_cells.txt has no " + fill + " " + nameOf(spacing));
}

}  // namespace hmonitor::test
