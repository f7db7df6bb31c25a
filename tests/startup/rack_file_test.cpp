// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/rack_file.h"

#include <gtest/gtest.h>

#include "core/text_lines.h"
#include "tests/core/formats_page.h"
#include "tests/support/temp_folder.h"

namespace hmonitor {
namespace {

TEST(RackFileTest, WhatIsWrittenReadsAsTheSame) {
    const test::TempFolder temp;
    const Files files(temp.path());
    EXPECT_EQ(RackFile::read(files), RackFile{});
    const RackFile file{{-40, 120, 1300, true}, true};
    file.write(files);
    EXPECT_EQ(temp.read("rack.ini"),
              "left = -40\r\ntop = 120\r\nwidth = 1300\r\nwhole = 1\r\ncard = seen\r\n");
    EXPECT_EQ(RackFile::read(files), file);
}

TEST(RackFileTest, TheExampleOfThePageReadsAsItSays) {
    const test::FormatsPage page;
    EXPECT_EQ(RackFile::parse(joinLines(page.example("rack.ini"))),
              (RackFile{{120, 64, 1400, false}, true}));
}

TEST(RackFileTest, WhatIsOddIsAsAtTheFirstStart) {
    EXPECT_EQ(RackFile::parse(""), RackFile{});
    EXPECT_EQ(RackFile::parse("left\n= 3\nwidth = wide\ntop = 1e9\nwhole = yes\ncard = old\n"),
              RackFile{});
    EXPECT_EQ(RackFile::parse("width = 99999999\nleft=7\n"), (RackFile{{7, 0, 0, false}, false}));
    EXPECT_TRUE(RackFile::parse("card = seen").cardSeen);
}

}  // namespace
}  // namespace hmonitor
