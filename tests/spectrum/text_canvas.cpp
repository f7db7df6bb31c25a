// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/spectrum/text_canvas.h"

#include <array>
#include <cstdio>

namespace hmonitor::test {

namespace {

std::string printed(const char* format, auto... values) {
    std::array<char, 160> text{};
    std::snprintf(text.data(), text.size(), format, values...);
    return text.data();
}

std::string four(float x1, float y1, float x2, float y2) {
    return printed(" %.2f %.2f %.2f %.2f", x1, y1, x2, y2);
}

}  // namespace

void TextCanvas::box(float x1, float y1, float x2, float y2) {
    marks.push_back(printed("box %06x", foreground.bgr) + four(x1, y1, x2, y2));
}

void TextCanvas::line(float x1, float y1, float x2, float y2) {
    marks.push_back(printed("line %06x w%d", foreground.bgr, lineWidth) + four(x1, y1, x2, y2));
}

void TextCanvas::print(std::string_view text) {
    marks.push_back(
        printed("text %06x %s %.2f %.2f |", foreground.bgr, bold ? "bold" : "thin", textX, textY) +
        std::string(text) + "|");
    texts_.emplace_back(text);
}

std::vector<std::string> TextCanvas::startingWith(std::string_view start) const {
    std::vector<std::string> found;
    for (const std::string& mark : marks) {
        if (mark.starts_with(start)) found.push_back(mark);
    }
    return found;
}

std::vector<std::string> TextCanvas::texts() const {
    return texts_;
}

std::string TextCanvas::all() const {
    std::string text;
    for (const std::string& mark : marks) text += mark + "\n";
    return text;
}

}  // namespace hmonitor::test
