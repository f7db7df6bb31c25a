// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/page.h"

#include <algorithm>
#include <charconv>
#include <system_error>
#include <utility>

namespace display {

void PageDocument::newPage() {
    pages_.push_back({margins, {}});
}

PageMark& PageDocument::add(PageMark::Kind kind, PagePoint from) {
    if (pages_.empty()) newPage();
    PageMark& mark = pages_.back().marks.emplace_back();
    mark.kind = kind;
    mark.pen = pen;
    mark.font = font;
    mark.from = from;
    mark.to = from;
    return mark;
}

void PageDocument::picture(std::string_view name, PagePoint at, float width, float height) {
    PageMark& mark = add(PageMark::Kind::Picture, at);
    mark.to = {at.x + width, at.y + height};
    mark.text = name;
}

void PageDocument::text(PagePoint at, std::string_view text) {
    turnedText(at, 0, text);
}

void PageDocument::turnedText(PagePoint at, int tenthsOfDegrees, std::string_view text) {
    PageMark& mark = add(PageMark::Kind::Writing, at);
    mark.turn = tenthsOfDegrees;
    mark.text = text;
}

void PageDocument::line(PagePoint from, PagePoint to) {
    add(PageMark::Kind::Line, from).to = to;
}

void PageDocument::rectangle(PagePoint corner, PagePoint opposite) {
    add(PageMark::Kind::Rectangle, corner).to = opposite;
}

void PageDocument::polyline(std::string_view coordinates) {
    add(PageMark::Kind::Polyline, {}).text = coordinates;
}

namespace {

/// Removes a number, and blanks before it, from the start of the text; false if there is none.
bool takeNumber(std::string_view& text, float& number) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number, std::chars_format::fixed);
    if (read.ec != std::errc{}) return false;
    text.remove_prefix(static_cast<std::size_t>(read.ptr - text.data()));
    return true;
}

}  // namespace

std::vector<PagePoint> pagePoints(std::string_view coordinates) {
    std::vector<PagePoint> points;
    PagePoint point;
    while (takeNumber(coordinates, point.x) && takeNumber(coordinates, point.y))
        points.push_back(point);
    return points;
}

void PagePreview::show(PageDocument document) {
    document_ = std::move(document);
    ++shownDocuments_;
    touch();
}

void PagePreview::resetKind() {
    KindOf::resetKind();
    show({});
}

}  // namespace display
