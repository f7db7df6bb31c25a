// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace hmonitor {

/// Where a run measures and where its levels go. One sink serves both kinds of unit: a round is
/// measured point by point, or read out of a sweep's frame.
class LevelSink {
 public:
    virtual ~LevelSink() = default;

    /// A round goes from the first index to the last, both included.
    virtual int first() const = 0;
    virtual int last() const = 0;
    /// Of an index, 100 kHz units.
    virtual float frequency(int index) const = 0;

    /// A round begins: a frame has come, or the first point of many rounds is next.
    virtual void roundBegins() {}
    /// Before each level. Answers the level that stands if the unit gives none that can be one:
    /// the last of the round, unless the sink knows better.
    virtual float before(int /*index*/, float lastLevel) { return lastLevel; }
    /// dB, as the unit gives it.
    virtual void take(int index, float level) = 0;
    /// The unit refused to measure that point: the run ends with it.
    virtual void refused(int /*index*/) {}
    /// All levels of the round were taken.
    virtual void roundEnds() {}
};

}  // namespace hmonitor
