// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "display/controls/appearance.h"
#include "display/controls/control_kind.h"
#include "display/controls/pictures.h"
#include "display/controls/shapes.h"

namespace display {

// Paper is measured in page units: 1,440 to the inch, 20 to the point. y grows downward; the origin
// is the corner of the margins, so that small negative coordinates lie in the margin.
inline constexpr int kPageUnitsPerInch = 1440;
inline constexpr float kPageUnitsPerPoint = 20;

/// A sheet of paper, upright.
struct Paper {
    float width = 0;
    float height = 0;
    bool operator==(const Paper&) const = default;
};
inline constexpr Paper kA4{11906, 16838};
inline constexpr Paper kLetter{12240, 15840};

struct PageMargins {
    float left = 0;
    float top = 0;
    float right = 0;
    float bottom = 0;
    bool operator==(const PageMargins&) const = default;
};

struct PagePoint {
    float x = 0;
    float y = 0;
    bool operator==(const PagePoint&) const = default;
};

enum class PenStyle : std::uint8_t { Solid, Dotted };

struct PagePen {
    Colour colour = kBlack;
    float width = 10;  ///< page units
    PenStyle style = PenStyle::Solid;
    bool operator==(const PagePen&) const = default;
};

/// Whether letters have widths of their own, or all the same width.
enum class Pitch : std::uint8_t { Proportional, Fixed };

struct PageFont {
    float points = 12;
    Weight weight = Weight::Normal;
    Pitch pitch = Pitch::Proportional;
    Colour colour = kBlack;
    bool operator==(const PageFont&) const = default;
};

/// The width of one character of a fixed-pitch text, in page units. It is part of the model: each
/// display stretches its font to this width, so that a column stands at the same place on any
/// paper.
constexpr float fixedAdvance(float points) {
    return 0.6f * points * kPageUnitsPerPoint;
}
/// The distance from one line of text to the next.
constexpr float lineHeight(float points) {
    return 1.25f * points * kPageUnitsPerPoint;
}

/// One mark of a page, with the pen or the font that it was made with.
struct PageMark {
    enum class Kind : std::uint8_t { Picture, Writing, Line, Rectangle, Polyline };
    Kind kind = Kind::Writing;
    PagePen pen;
    PageFont font;
    PagePoint from;  ///< the upper left corner, where there is one
    PagePoint to;
    int turn = 0;  ///< tenths of a degree against the clock, about the upper left corner
    /// The text, the picture's name or the polyline's coordinates: "x y x y ".
    std::string text;
};

struct Page {
    PageMargins margins;
    std::vector<PageMark> marks;
};

/// A document: composed once, then shown in a preview, printed, or read by a test. Pen, font and
/// margins are plain members: a mark uses the pen and the font of its moment, a page the margins of
/// the moment when it begins.
class PageDocument {
 public:
    PageMargins margins;
    PagePen pen;
    PageFont font;

    void newPage();
    /// One of the program's own drawings, by its name.
    void picture(std::string_view name, PagePoint at, float width, float height);
    void text(PagePoint at, std::string_view text);
    void turnedText(PagePoint at, int tenthsOfDegrees, std::string_view text);
    void line(PagePoint from, PagePoint to);
    void rectangle(PagePoint corner, PagePoint opposite);
    /// Through the points of a text of coordinates: "x y x y ".
    void polyline(std::string_view coordinates);

    const std::vector<Page>& pages() const { return pages_; }

 private:
    PageMark& add(PageMark::Kind kind, PagePoint from);

    std::vector<Page> pages_;
};

/// The points in a text of coordinates; a last number without a partner is ignored.
std::vector<PagePoint> pagePoints(std::string_view coordinates);

/// A control that shows a preview of a document.
class PagePreview final : public KindOf<PagePreview> {
 public:
    using KindOf::KindOf;
    bool interactive() const override { return true; }

    /// Shows the first page of another document.
    void show(PageDocument document);
    const PageDocument& document() const { return document_; }
    /// Counts the calls of show().
    int shownDocuments() const { return shownDocuments_; }

    /// Percent of the paper's true size.
    Property<int> zoom{*this, 100};

    template <class Each>
    void forEachProperty(Each each) {
        each("zoom", zoom);
    }

 protected:
    void resetKind() override;

 private:
    PageDocument document_;
    int shownDocuments_ = 0;
};

}  // namespace display
