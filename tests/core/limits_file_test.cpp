// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/limits_file.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/code_page.h"
#include "core/text_lines.h"
#include "tests/core/formats_page.h"
#include "tests/support/temp_folder.h"

namespace hmonitor {
namespace {

LimitsFile parsedLimits(std::string_view text) {
    auto parsed = LimitsFile::parse(text);
    const auto* fault = std::get_if<LimitsFault>(&parsed);
    EXPECT_FALSE(fault) << fault->english;
    return fault ? LimitsFile{} : std::get<LimitsFile>(std::move(parsed));
}

std::string faultIn(std::string_view text) {
    const auto parsed = LimitsFile::parse(text);
    const auto* fault = std::get_if<LimitsFault>(&parsed);
    return fault ? fault->english : "no fault";
}

TEST(LimitsFileTest, TheUsualRulesAreThoseOfTheStandards) {
    const LimitsFile usual = LimitsFile::usual();
    const auto rule = [&](const char* figure) -> const LimitRule& {
        for (const LimitRule& each : usual.rules) {
            if (std::string_view(each.figure->key) == figure) return each;
        }
        throw std::runtime_error(figure);
    };
    EXPECT_EQ(rule("deviation_peak").good.highest, 77);
    EXPECT_EQ(rule("deviation_peak").severity, LimitSeverity::Alarm);
    EXPECT_EQ(rule("pilot_level").good.lowest, 8);
    EXPECT_EQ(rule("pilot_level").good.highest, 10);
    EXPECT_EQ(rule("pilot_error").good.lowest, -2);
    EXPECT_EQ(rule("pilot_error").good.highest, 2);
    EXPECT_EQ(rule("carrier_error").good.highest, 1000);
    EXPECT_EQ(rule("carrier_error").good.lowest, -1000);
}

TEST(LimitsFileTest, WhatIsWrittenReadsAsTheSameRules) {
    const LimitsFile usual = LimitsFile::usual();
    const LimitsFile read = parsedLimits(usual.text());
    ASSERT_EQ(read.rules.size(), usual.rules.size());
    for (std::size_t i = 0; i < usual.rules.size(); ++i) {
        EXPECT_TRUE(sameRule(read.rules[i], usual.rules[i])) << usual.rules[i].name;
    }
    EXPECT_EQ(read.text(), usual.text());
}

TEST(LimitsFileTest, AFileIsWrittenAsItStood) {
    const std::string text =
        "; The station's own limits\r\n"
        "\r\n"
        "# since March\r\n"
        "[pilot]\r\n"
        "  figure=pilot_level\r\n"
        "; a comment inside\r\n"
        "outside =  7.5\t10.5\r\n"
        "\r\n"
        "; the carrier\r\n"
        "[carrier]\r\n"
        "figure = carrier_error\r\n"
        "below = -500\r\n"
        "; the end\r\n";
    LimitsFile file = parsedLimits(text);
    EXPECT_EQ(file.text(), text);
    // A changed rule is written again, below its comment; the rest stays.
    file.rules[1].good.lowest = -400;
    file.rules[1].lines.clear();
    const std::string changed = file.text();
    EXPECT_TRUE(changed.starts_with(text.substr(0, text.find("[carrier]"))));
    EXPECT_NE(changed.find("; the carrier\r\n[carrier]\r\nfigure = carrier_error\r\n"
                           "below = -400\r\nfor = 5\r\nrelease = 5\r\nseverity = warning\r\n"),
              std::string::npos);
    EXPECT_TRUE(changed.ends_with("; the end\r\n"));
    // A removed rule takes its own comment with it.
    file.rules.erase(file.rules.begin());
    EXPECT_TRUE(file.text().starts_with("; The station's own limits\r\n\r\n; the carrier\r\n"));
}

TEST(LimitsFileTest, WhatARuleDoesNotSayIsTheUsual) {
    const LimitsFile file = parsedLimits("[field]\nfigure = field\nbelow = 45");
    ASSERT_EQ(file.rules.size(), 1u);
    EXPECT_EQ(file.rules[0].holdsFor, 5);
    EXPECT_EQ(file.rules[0].release, 5);
    EXPECT_EQ(file.rules[0].severity, LimitSeverity::Warning);
    EXPECT_TRUE(std::isinf(file.rules[0].good.highest));
}

TEST(LimitsFileTest, AboveAndBelowTogetherAreOutside) {
    const LimitsFile file =
        parsedLimits("[p]\nfigure = pilot_level\nbelow = 8\nabove = 10\nfor = 0.5\n");
    EXPECT_EQ(file.rules[0].good.lowest, 8);
    EXPECT_EQ(file.rules[0].good.highest, 10);
    EXPECT_EQ(file.rules[0].holdsFor, 0.5);
}

TEST(LimitsFileTest, AFaultNamesFileAndLine) {
    const std::string rule = "[a]\nfigure = field\nbelow = 45\n";
    EXPECT_EQ(faultIn("figure = field\n"),
              "limits.ini, line 1: the rule's section is missing, such as [carrier]");
    EXPECT_EQ(faultIn("\n[a\n"), "limits.ini, line 2: a section is written [name]");
    EXPECT_EQ(faultIn("[]\n"), "limits.ini, line 1: a section is written [name]");
    EXPECT_EQ(faultIn("[a]b\n"), "limits.ini, line 1: a section is written [name]");
    EXPECT_EQ(faultIn(rule + rule), "limits.ini, line 4: section \"a\" stands there twice");
    EXPECT_EQ(faultIn(rule + "field\n"), "limits.ini, line 4: it takes \"key = value\"");
    EXPECT_EQ(faultIn(rule + "abve = 3\n"), "limits.ini, line 4: \"abve\" is no setting of a rule");
    EXPECT_EQ(faultIn(rule + "below = 3\n"),
              "limits.ini, line 4: \"below\" stands twice in the rule");
    EXPECT_EQ(faultIn(rule + "outside = 3 4\n"),
              "limits.ini, line 4: outside does not go with above or below");
    EXPECT_EQ(faultIn(rule + "above = high\n"),
              "limits.ini, line 4: above takes a number, not \"high\"");
    EXPECT_EQ(faultIn(rule + "above = 1e9\n"),
              "limits.ini, line 4: above takes a number, not \"1e9\"");
    EXPECT_EQ(faultIn(rule + "for = -1\n"),
              "limits.ini, line 4: for takes seconds, 0 to 3600, not \"-1\"");
    EXPECT_EQ(faultIn(rule + "release = 3601\n"),
              "limits.ini, line 4: release takes seconds, 0 to 3600, not \"3601\"");
    EXPECT_EQ(faultIn(rule + "severity = red\n"),
              "limits.ini, line 4: severity is warning or alarm, not \"red\"");
    EXPECT_EQ(faultIn("[a]\nfigure = pilot\n"), "limits.ini, line 2: \"pilot\" is no figure");
    EXPECT_EQ(faultIn("[a]\noutside = 3\n"),
              "limits.ini, line 2: outside takes two numbers, not \"3\"");
    EXPECT_EQ(faultIn("[a]\nbelow = 3\n[b]\n"), "limits.ini, line 1: this rule lacks its figure");
    EXPECT_EQ(faultIn("[a]\nfigure = field\n"),
              "limits.ini, line 1: this rule needs above, below or outside");
    EXPECT_EQ(faultIn("[a]\nfigure = field\noutside = 9 8\n"),
              "limits.ini, line 1: the lower bound is above the upper one");
    std::string many;
    for (int i = 0; i <= 60; ++i) {
        many += "[" + std::to_string(i) + "]\nfigure = field\nbelow = 45\n";
    }
    EXPECT_EQ(faultIn(many), "limits.ini, line 181: there are more than 60 rules");
}

TEST(LimitsFileTest, AFaultIsSaidInSpanishToo) {
    const auto parsed = LimitsFile::parse("[a]\nfigure = pilot\n");
    EXPECT_EQ(std::get<LimitsFault>(parsed).spanish,
              "limits.ini, línea 2: \"pilot\" no es ninguna medida");
}

TEST(LimitsFileTest, WithoutAFileTheUsualRulesHold) {
    const test::TempFolder temp;
    const auto parsed = LimitsFile::read(Files(temp.path()));
    ASSERT_TRUE(std::holds_alternative<LimitsFile>(parsed));
    EXPECT_EQ(std::get<LimitsFile>(parsed).rules.size(), LimitsFile::usual().rules.size());
}

TEST(LimitsFileTest, AnEmptyFileHasNoRules) {
    EXPECT_TRUE(parsedLimits("").rules.empty());
    EXPECT_TRUE(parsedLimits("; none\n").rules.empty());
    EXPECT_EQ(parsedLimits("; none\n").text(), "; none\r\n");
}

TEST(LimitsFileTest, NamesAreInTheCodePage) {
    const test::TempFolder temp;
    const Files files(temp.path());
    LimitsFile file = LimitsFile::usual();
    file.rules.resize(1);
    file.rules[0].name = "desviación";
    ASSERT_FALSE(file.write(files));
    EXPECT_NE(temp.read("limits.ini").find("[desviaci\xf3n]"), std::string::npos);
    const auto parsed = LimitsFile::read(files);
    EXPECT_EQ(std::get<LimitsFile>(parsed).rules[0].name, "desviación");
}

TEST(LimitsFileTest, AMarkThatAnEditorPutsBeforeTheFirstLineIsNoFault) {
    const test::TempFolder temp;
    temp.write("limits.ini", "\xef\xbb\xbf[señal]\nfigure = field\nbelow = 4\n");
    const auto parsed = LimitsFile::read(Files(temp.path()));
    ASSERT_TRUE(std::holds_alternative<LimitsFile>(parsed))
        << std::get<LimitsFault>(parsed).english;
    const auto& rules = std::get<LimitsFile>(parsed).rules;
    ASSERT_EQ(rules.size(), 1u);
    EXPECT_EQ(rules[0].name, "señal") << "the mark says that the text is UTF-8";
}

TEST(LimitsFileTest, TheExampleOfThePageReadsAsItSays) {
    const test::FormatsPage page;
    const LimitsFile file = parsedLimits(joinLines(page.example("limits.ini")));
    ASSERT_EQ(file.rules.size(), 2u);
    EXPECT_EQ(file.rules[0].name, "deviation");
    EXPECT_STREQ(file.rules[0].figure->key, "deviation_peak");
    EXPECT_EQ(file.rules[0].good.highest, 77);
    EXPECT_EQ(file.rules[0].holdsFor, 0);
    EXPECT_EQ(file.rules[0].release, 10);
    EXPECT_EQ(file.rules[0].severity, LimitSeverity::Alarm);
    EXPECT_EQ(file.rules[1].good.lowest, 7.5f);
    EXPECT_EQ(file.rules[1].good.highest, 10.5f);
    // Each fault of the table gives the sentence in the table.
    const auto rows = page.rows("limits.ini");
    int faults = 0;
    for (const auto& row : rows) {
        if (row.size() != 2 || !row[1].starts_with("limits.ini, line")) continue;
        EXPECT_EQ(faultIn(test::unescaped(row[0])), row[1]);
        ++faults;
    }
    EXPECT_GE(faults, 4);
}

TEST(LimitsFile, AFaultNamesWhatStandsThereWithoutControlCharacters) {
    const auto parsed = LimitsFile::parse("[a]\r\nfigure = \x1b[2Jpilot\x7f\r\n");
    const auto* fault = std::get_if<LimitsFault>(&parsed);
    ASSERT_NE(fault, nullptr);
    EXPECT_EQ(fault->english, "limits.ini, line 2: \"?[2Jpilot?\" is no figure");
}

}  // namespace
}  // namespace hmonitor
