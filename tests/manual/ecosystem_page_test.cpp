// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <string>

namespace hmonitor::test {
namespace {

TEST(EcosystemPage, EachAnswerNamesTestsThatAreThere) {
    const std::filesystem::path top = HMONITOR_SOURCE_DIR;
    std::ifstream page(top / "docs" / "ecosystem.md");
    static const std::regex kTest("`(tests/[^`]*)`");
    std::size_t answers = 0;
    bool inTable = false;
    for (std::string line; std::getline(page, line);) {
        if (line.starts_with("|---")) {
            inTable = true;
            continue;
        }
        if (!inTable || !line.starts_with("|")) continue;
        ++answers;
        std::sregex_iterator at(line.begin(), line.end(), kTest), end;
        EXPECT_NE(at, end) << "no test: " << line;
        for (; at != end; ++at) {
            EXPECT_TRUE(std::filesystem::is_regular_file(top / std::string((*at)[1]))) << (*at)[1];
        }
    }
    EXPECT_GE(answers, 20u);
}

}  // namespace
}  // namespace hmonitor::test
