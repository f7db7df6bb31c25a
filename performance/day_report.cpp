// SPDX-License-Identifier: GPL-3.0-or-later
#include "performance/day_report.h"

#include <utility>

#include "core/code_page.h"
#include "core/text_lines.h"

namespace hmonitor {

namespace {

constexpr int kMostLines = 24;
constexpr std::size_t kBlockLines = 12;
constexpr std::string_view kTabs = "\t\t";

/// One line of the log, split into fields for the report.
class ReportLine {
 public:
    explicit ReportLine(std::string_view line) : line_(line) {
        // A character that is missing counts as a blank.
        const auto blankAt = [&](std::size_t at) { return at >= line.size() || line[at] == ' '; };
        const std::size_t digits = blankAt(1) ? 1 : blankAt(2) ? 2 : 0;
        hour_ = line.substr(0, digits);
        rest_ = line.substr(hour_.size());
        if (rest_.starts_with(' ')) rest_.remove_prefix(1);
    }

    std::string hour() const { return utf8FromCodePage(hour_); }

    /// Field `number`, from 1, shortened; empty where the line has none.
    std::string field(int number) const {
        std::string_view rest = rest_;
        for (int passed = 1; passed < number; ++passed) {
            const auto blank = rest.find(' ');
            if (blank == std::string_view::npos) return {};
            rest.remove_prefix(blank + 1);
        }
        return utf8FromCodePage(shortened(rest.substr(0, rest.find(' '))));
    }

 private:
    std::string_view line_, hour_, rest_;
};

std::vector<ReportLine> linesOf(std::string_view bytes) {
    std::vector<ReportLine> lines;
    TextLines text(bytes);
    while (lines.size() < kMostLines) {
        const auto line = text.next();
        if (!line) break;
        lines.emplace_back(*line);
    }
    return lines;
}

std::string title(std::string_view day, std::string_view brand) {
    const std::string date(day);
    if (brand == "Marvenia") return "* MARVENIA  HM-36 Halden Monitor Report Date: " + date + " *";
    return " * TESKEL  TK-16 Halden Monitor Report Date: " + date + " *";
}

std::string firstTableLine(const ReportLine& line) {
    return line.hour() + "|\t" + line.field(1) + "\t" + line.field(5) + "\t  " + line.field(2) +
           " " + line.field(3) + "\t  " + line.field(8) + "\t    " + line.field(9);
}

/// The second table: each of the first twelve lines, followed by the line twelve lines later.
std::vector<std::string> secondTable(const std::vector<ReportLine>& lines) {
    std::vector<std::string> table;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const ReportLine& line = lines[i];
        if (i < kBlockLines) {
            table.push_back(line.hour() + "|\t" + line.field(7) + "\t    " + line.field(4));
        } else {
            table[i - kBlockLines] +=
                "\t\t" + line.hour() + "|        " + line.field(7) + "\t  " + line.field(4);
        }
    }
    return table;
}

}  // namespace

std::string_view shortened(std::string_view value) {
    return value.substr(0, value.size() > 3 && value[3] == '.' ? 3 : 4);
}

std::vector<std::string> dayReport(std::string_view bytes, std::string_view day,
                                   std::string_view brand) {
    const std::string stars(69, '*');
    const std::vector<ReportLine> lines = linesOf(bytes);
    std::vector<std::string> report{stars, title(day, brand), stars,
                                    "hs|Modulation  Power     Left & Right   Silence  Reverse"};
    for (const ReportLine& line : lines) report.push_back(firstTableLine(line));
    report.emplace_back(82, '-');
    report.emplace_back("hs|   Overmod   Stereo Phase    hs|Overmod   Stereo Phase");
    for (std::string& line : secondTable(lines)) report.push_back(std::move(line));
    for (std::string& line : report) line.insert(0, kTabs);
    return report;
}

}  // namespace hmonitor
