// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/host/call_journal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

namespace hm16::test {
namespace {

using testing::ContainsRegex;
using testing::HasSubstr;

CallValues valuesOf(Call call, float number = 0, std::int32_t result = 0) {
    CallValues values;
    values.call = call;
    values.numbers[0] = number;
    values.result = result;
    return values;
}

void made(CallJournal& journal, const CallValues& values) {
    journal.begin(values);
    journal.end(values);
}

std::vector<std::string> linesOf(const CallJournal& journal) {
    std::vector<std::string> lines;
    std::istringstream in(journal.text());
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

TEST(CallJournal, TellsACallWithItsArgumentsResultAndTime) {
    CallJournal journal;
    CallValues values = valuesOf(Call::Normal, 1025.5f, 7);
    values.wholes[0] = 1;
    values.wholes[3] = 2;
    made(journal, values);
    EXPECT_THAT(journal.text(),
                ContainsRegex("^[0-9]{2}:[0-9]{2}:[0-9]{2}\\.[0-9]{3}  HM_Normal\\(1025\\.5, 1, 0, "
                              "0, 2\\) = 7, [0-9]+\\.[0-9]{3} ms\n$"));
}

TEST(CallJournal, SaysOfTheLastThatItDidNotReturn) {
    CallJournal journal;
    made(journal, valuesOf(Call::Parar));
    journal.begin(valuesOf(Call::Super, 985));
    const auto lines = linesOf(journal);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_THAT(lines[0], HasSubstr("HM_Parar() = 0"));
    EXPECT_THAT(lines[1], testing::EndsWith("HM_Super(985, …) did not return"));
}

TEST(CallJournal, CountsReadingsTogetherUntilSomethingElseIsCalled) {
    CallJournal journal;
    for (int i = 0; i < 1000; ++i) {
        made(journal, valuesOf(Call::Data));
        made(journal, valuesOf(Call::DataRds));
    }
    made(journal, valuesOf(Call::Parar));
    made(journal, valuesOf(Call::Data));
    const auto lines = linesOf(journal);
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_THAT(lines[0], HasSubstr("HM_Data(), call 1000 of it = 0"));
    EXPECT_THAT(lines[1], HasSubstr("HM_DataRDS(), call 1000 of it = 0"));
    EXPECT_THAT(lines[3], HasSubstr("HM_Data() = 0"));
}

TEST(CallJournal, KeepsTheLastHundredAndTwentyEight) {
    CallJournal journal;
    for (int i = 0; i < 300; ++i) made(journal, valuesOf(Call::Super, static_cast<float>(i)));
    const auto lines = linesOf(journal);
    ASSERT_EQ(lines.size(), 128u);
    EXPECT_THAT(lines.front(), HasSubstr("HM_Super(172, …)"));
    EXPECT_THAT(lines.back(), HasSubstr("HM_Super(299, …)"));
}

}  // namespace
}  // namespace hm16::test
