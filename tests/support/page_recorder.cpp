// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/page_recorder.h"

#include <array>
#include <cstdio>
#include <sstream>

namespace hmonitor::test {

using display::PageMark;

namespace {

std::string colourWord(display::Colour colour) {
    switch (colour.bgr) {
        case 0x000000:
            return "black";
        case 0x0000ff:
            return "red";
        case 0xff0000:
            return "blue";
        default:
            break;
    }
    std::array<char, 12> digits{};
    std::snprintf(digits.data(), digits.size(), "%06x", static_cast<unsigned>(colour.bgr));
    return digits.data();
}

std::string penWords(const display::PagePen& pen) {
    std::ostringstream out;
    out << " width " << pen.width << " " << colourWord(pen.colour);
    if (pen.style == display::PenStyle::Dotted) out << " dotted";
    return out.str();
}

std::string fontWords(const display::PageFont& font) {
    std::ostringstream out;
    out << " size " << font.points;
    if (font.weight == display::Weight::Bold) out << " bold";
    if (font.pitch == display::Pitch::Fixed) out << " fixed";
    out << " " << colourWord(font.colour);
    return out.str();
}

std::string lineOf(const PageMark& mark) {
    std::ostringstream out;
    const auto corners = [&] {
        out << " " << mark.from.x << " " << mark.from.y << " " << mark.to.x << " " << mark.to.y;
    };
    switch (mark.kind) {
        case PageMark::Kind::Picture:
            out << "picture \"" << mark.text << "\"";
            corners();
            break;
        case PageMark::Kind::Writing:
            out << "text \"" << mark.text << "\" " << mark.from.x << " " << mark.from.y;
            if (mark.turn != 0) out << " turned " << mark.turn;
            out << fontWords(mark.font);
            break;
        case PageMark::Kind::Line:
            out << "line";
            corners();
            out << penWords(mark.pen);
            break;
        case PageMark::Kind::Rectangle:
            out << "rectangle";
            corners();
            out << penWords(mark.pen);
            break;
        case PageMark::Kind::Polyline:
            out << "polyline \"" << mark.text << "\"" << penWords(mark.pen);
            break;
    }
    return out.str();
}

}  // namespace

std::vector<std::string> recorded(const display::PageDocument& document) {
    std::vector<std::string> lines;
    for (const display::Page& page : document.pages()) {
        std::ostringstream head;
        head << "page " << page.margins.left << " " << page.margins.top << " " << page.margins.right
             << " " << page.margins.bottom;
        lines.push_back(head.str());
        for (const PageMark& mark : page.marks) lines.push_back(lineOf(mark));
    }
    return lines;
}

std::vector<std::string> beginning(const std::vector<std::string>& lines, const std::string& with) {
    std::vector<std::string> found;
    for (const std::string& line : lines) {
        if (line.starts_with(with)) found.push_back(line);
    }
    return found;
}

}  // namespace hmonitor::test
