// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <complex>
#include <deque>

namespace hm16::receiver {

// A straight line through the pilot's phase.
struct PilotLine {
    double phase = 0;      // radians against a 19 kHz cosine, at `time`
    double slope = 0;      // radians a second
    double time = 0;       // seconds, the middle of the stretch
    double amplitude = 0;  // of the pilot's points along the line
    double coherence = 0;  // share of their power that lies on the line, 0 to 1

    double errorHz() const;
    double phaseAt(double seconds) const { return phase + slope * (seconds - time); }
    // True when this is a pilot and not what noise or programme left in its band.
    bool steady() const;
};

// The pilot's points, some 500 a second, as they come out of its filter. A line fitted to their
// phase is the best estimate that there is of a steady sine, and needs no loop that could slip.
class PilotTrack {
 public:
    // `seconds` must rise from point to point.
    void add(double seconds, std::complex<float> point);

    // Says that an unknown number of samples is missing at this time: the phase jumps there. What
    // lay before is turned to what comes behind it, so that a line goes through both.
    void splice(double seconds) { splices_.push_back(seconds); }

    // The line through the points of a stretch; all zero with fewer than 8 of them.
    PilotLine fit(double from, double to) const;

    // Time of the newest point, -1 without one.
    double newest() const { return points_.empty() ? -1 : points_.back().seconds; }

 private:
    struct Point {
        double seconds;
        std::complex<float> value;
        double phase;  // unwrapped
    };

    void join(double seconds);

    std::deque<Point> points_;
    std::deque<double> splices_;  // that still have to be joined
};

}  // namespace hm16::receiver
