// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <complex>
#include <deque>

namespace hm16::receiver {

// A straight line through the pilot's phase.
struct PilotLine {
    double phase = 0;      // radians relative to a 19 kHz cosine, at `time`
    double slope = 0;      // radians a second
    double time = 0;       // seconds, the middle of the stretch
    double amplitude = 0;  // of the pilot's points along the line
    double coherence = 0;  // share of their power that lies on the line, 0 to 1

    double errorHz() const;
    double phaseAt(double seconds) const { return phase + slope * (seconds - time); }
    // True if this is a pilot and not noise or programme in its band.
    bool steady() const;
};

// The pilot's points, about 500 a second, as they come out of its filter. A line through their
// phases is the best estimate of a steady sine, and there is no loop that could slip.
class PilotTrack {
 public:
    // `seconds` must rise from point to point.
    void add(double seconds, std::complex<float> point);

    // Announces that an unknown number of samples is missing at this time, so the phase jumps.
    // Points before it are turned to match those after it, so that a line fits both.
    void splice(double seconds) { splices_.push_back(seconds); }

    // The line through the points of a stretch; all zero if there are fewer than 8.
    PilotLine fit(double from, double to) const;

    // Time of the newest point, -1 if there is none.
    double newest() const { return points_.empty() ? -1 : points_.back().seconds; }

 private:
    struct Point {
        double seconds;
        std::complex<float> value;
        double phase;  // unwrapped
    };

    void join(double seconds);

    std::deque<Point> points_;
    std::deque<double> splices_;  // not joined yet
};

}  // namespace hm16::receiver
