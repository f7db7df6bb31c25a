// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "display/controls/control_kind.h"
#include "display/controls/plot_axis.h"
#include "display/controls/plot_columns.h"
#include "display/controls/time_ticks.h"

namespace display {

/// A line across a plot at a value that should not be passed.
struct PlotLimit {
    double y = 0;
    Colour colour = kRed;
};

/// Something that happened at one place of the axis.
struct PlotFlag {
    double x = 0;
    Colour colour = kWhite;
};

/// How a cause of holes is hatched.
struct PlotCause {
    std::uint8_t cause = 0;
    Colour colour;
};

/// What a key does to a plot.
enum class PlotKey {
    In,    ///< half of the range, about the first mark where it is in view, else the middle
    Out,   ///< twice the range
    Left,  ///< an eighth of the range back
    Right,
    First,     ///< the begin of what there is
    Last,      ///< its end
    MarkLeft,  ///< the first mark, by a hundredth of the range
    MarkRight,
    OtherLeft,  ///< the second mark
    OtherRight,
    NoMarks
};

/// Numeric series over one axis: curves, or bands from lowest to highest with the mean in them, a
/// reference trace behind them, limits, flags and two reading marks. What is not known is hatched
/// in the colour of its cause and never bridged by a curve. A plot draws its own scales, in its
/// insets.
///
/// The hand moves the shown range and the marks; the program hears of it by onLook and onMark. What
/// the program itself sets fires nothing.
class Plot final : public KindOf<Plot> {
 public:
    using KindOf::KindOf;
    bool interactive() const override { return true; }

    Property<PlotAxis> x{*this}, y{*this};
    /// The head of the plot: what is shown, in the colour of the first series, and its unit.
    Text title{*this}, unit{*this};
    /// Instead of curves, where there is nothing to show.
    Text note{*this};

    /// Room between the control's edges and the curves, in the units of its container.
    struct Insets {
        float left = 0;
        float top = 0;
        float right = 0;
        float bottom = 0;
        bool operator==(const Insets&) const = default;
    };
    Property<Insets> insets{*this};

    void series(std::vector<PlotSeries> shown);
    /// Adds a point at the end of a series, counted from 0.
    void append(std::size_t series, const PlotPoint& point);
    const std::vector<PlotSeries>& series() const { return series_; }
    /// A curve to compare with, behind the others. Its holes are not hatched.
    void reference(std::optional<PlotSeries> shown);
    const std::optional<PlotSeries>& reference() const { return reference_; }
    void limits(std::vector<PlotLimit> shown);
    const std::vector<PlotLimit>& limits() const { return limits_; }
    void flags(std::vector<PlotFlag> shown);
    const std::vector<PlotFlag>& flags() const { return flags_; }
    /// A cause without a colour is hatched in grey.
    void causes(std::vector<PlotCause> known);
    Colour causeColour(std::uint8_t cause) const;

    /// The two reading marks; none where it is not set. Marks need not be in view.
    static constexpr std::size_t kMarks = 2;
    void mark(std::size_t which, std::optional<double> at);
    std::optional<double> mark(std::size_t which) const { return marks_.at(which); }

    /// The clock by which a time axis is divided.
    void clock(WallClock itsClock);
    const WallClock& clock() const { return clock_; }
    /// The lines of the grid for curves that are so many twips wide and high.
    std::vector<PlotTick> ticksAcross(double twips) const;
    std::vector<PlotTick> ticksUp(double twips) const;

    /// What the hand can reach on the x axis: its ends, and the shortest and longest range.
    struct Reach {
        double earliest = 0;
        double latest = 0;
        double shortest = 0;
        double longest = 0;
        double first = 0;  ///< where what there is begins
        bool operator==(const Reach&) const = default;
    };
    /// Of no length: the hand moves marks alone.
    Property<Reach> reach{*this};

    // What the hand does. Shares are of the shown range, 0 at its left end.
    /// Divides the range by so much; what lies at the share stays there.
    void zoom(double by, double at);
    /// Moves the range by a share of it.
    void shift(double share);
    void point(std::size_t mark, double share);
    void press(PlotKey key);

    /// The hand moved the range, or a mark.
    Event onLook, onMark;
    /// The tool tip at a value of the axis, in the language of the form.
    std::function<std::string(double x)> tell;

    template <class Each>
    void forEachProperty(Each each) {
        each("x", x), each("y", y), each("title", title), each("unit", unit), each("note", note);
        each("insets", insets), each("reach", reach);
    }

 protected:
    void resetKind() override;

 private:
    void look(double lowest, double highest);
    void moveMark(std::size_t which, double share);

    std::vector<PlotSeries> series_;
    std::optional<PlotSeries> reference_;
    std::vector<PlotLimit> limits_;
    std::vector<PlotFlag> flags_;
    std::vector<PlotCause> causes_;
    std::array<std::optional<double>, kMarks> marks_;
    WallClock clock_;
};

}  // namespace display
