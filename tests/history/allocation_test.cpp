// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "history/recorder.h"
#include "tests/support/counted_heap.h"
#include "tests/support/temp_folder.h"

namespace history::test {
namespace {

TEST(Heartbeat, HandsItsReadingsOnWithoutAllocating) {
    StoreSettings settings;
    Recorder recorder(settings);
    Input input;
    input.what = Input::What::Readings;
    const long before = hmonitor::test::CountedHeap::now().taken;
    for (int i = 0; i < 5000; ++i) {
        input.at = Moment::now();
        recorder.put(input);
    }
    EXPECT_EQ(hmonitor::test::CountedHeap::now().taken, before);
}

}  // namespace
}  // namespace history::test
