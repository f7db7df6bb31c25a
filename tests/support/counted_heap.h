// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace hmonitor::test {

/// What the program took from the heap. The source file replaces the allocation of the whole
/// executable that it is built into, so it belongs to no library: name it among its sources.
struct CountedHeap {
    long taken = 0;  ///< blocks taken since the start
    long live = 0;   ///< blocks not given back yet
    long bytes = 0;  ///< their size

    static CountedHeap now();
};

}  // namespace hmonitor::test
