// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace hmonitor::test {

/// The program's heap allocations. The source file replaces the allocation functions of the
/// executable that it is linked into, so it belongs to no library: name it among the sources of the
/// test.
struct CountedHeap {
    long taken = 0;  ///< blocks taken since the start
    long live = 0;   ///< blocks not given back yet
    long bytes = 0;  ///< their size

    static CountedHeap now();
};

}  // namespace hmonitor::test
