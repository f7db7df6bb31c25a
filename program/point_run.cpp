// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/point_run.h"

namespace hmonitor {

/// For the length of a run.
class PointRun::Running {
 public:
    explicit Running(PointRun& run) : run_(run), hold_(run.lease_.hold(run.heard_)) {
        run_.stopped_ = false;
        run_.running_ = true;
    }
    ~Running() { run_.running_ = false; }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

 private:
    PointRun& run_;
    UnitLease::Hold hold_;
};

PointRun::End PointRun::round(LevelSink& sink, float& level) {
    for (int i = sink.first(), last = sink.last(); i <= last; ++i) {
        if (isStopped()) return End::Stopped;
        level = sink.before(i, level);
        if (program_.driver.HM_Super(sink.frequency(i), level) != 0) {
            sink.refused(i);
            return End::UnitFailed;
        }
        sink.take(i, level);
    }
    return End::Done;
}

PointRun::End PointRun::measure(LevelSink& sink, float standing) {
    const Running running(*this);
    return round(sink, standing);
}

PointRun::End PointRun::measureOnAndOn(LevelSink& sink) {
    const Running running(*this);
    float level = 0;
    while (!isStopped()) {
        sink.roundBegins();
        const End end = round(sink, level);
        if (end != End::Done) return end;
        if (!isStopped()) sink.roundEnds();
    }
    return End::Stopped;
}

}  // namespace hmonitor
