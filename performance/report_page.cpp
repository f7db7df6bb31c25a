// SPDX-License-Identifier: GPL-3.0-or-later
#include "performance/report_page.h"

#include <algorithm>

#include "base/utf8.h"

namespace hmonitor {

namespace {

constexpr std::size_t kTabStop = 8;
constexpr float kReportMargin = 720;

}  // namespace

std::string tabsExpanded(std::string_view line) {
    std::string text;
    std::size_t column = 0;
    for (const char c : line) {
        if (c == '\t') {
            const std::size_t blanks = kTabStop - column % kTabStop;
            text.append(blanks, ' ');
            column += blanks;
        } else {
            text += c;
            column += !base::continuesCharacter(c);
        }
    }
    return text;
}

display::PageDocument composeReportPage(const std::vector<std::string>& lines,
                                        const display::Paper& paper, float points) {
    std::vector<std::string> texts;
    std::size_t longest = 1;
    for (const std::string& line : lines) {
        texts.push_back(tabsExpanded(line));
        longest = std::max(longest, base::characters(texts.back()));
    }
    const float across = paper.width - 2 * kReportMargin;
    const float fitting = across / (static_cast<float>(longest) * display::fixedAdvance(1));

    display::PageDocument document;
    document.margins = {kReportMargin, kReportMargin, kReportMargin, kReportMargin};
    document.font = {std::min(points, fitting), display::Weight::Normal, display::Pitch::Fixed};
    document.newPage();
    float y = 0;
    for (const std::string& text : texts) {
        document.text({0, y}, text);
        y += display::lineHeight(document.font.points);
    }
    return document;
}

}  // namespace hmonitor
