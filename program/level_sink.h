// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace hmonitor {

/// Says at which frequencies a run measures, and receives the levels. The same sink serves both
/// kinds of unit: a round is measured point by point, or read from a sweep's frame.
class LevelSink {
 public:
    virtual ~LevelSink() = default;

    /// A round goes from the first index to the last, both included.
    virtual int first() const = 0;
    virtual int last() const = 0;
    /// The frequency of an index, in units of 100 kHz.
    virtual float frequency(int index) const = 0;

    /// A round begins: a frame has arrived, or the first point of the next round follows.
    virtual void roundBegins() {}
    /// Called before each level. Returns the level to use if the unit gives no possible one: by
    /// default the previous level of the round.
    virtual float before(int /*index*/, float lastLevel) { return lastLevel; }
    /// dB, as the unit gives it.
    virtual void take(int index, float level) = 0;
    /// The unit refused to measure that point, and the run ends.
    virtual void refused(int /*index*/) {}
    /// The round is complete.
    virtual void roundEnds() {}
};

}  // namespace hmonitor
