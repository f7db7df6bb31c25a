// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/frame_run.h"

namespace hmonitor {

namespace {

/// Also when the work on a frame ends by an exception, the next frame is processed.
class InWork {
 public:
    explicit InWork(bool& flag) : flag_(flag) { flag_ = true; }
    ~InWork() { flag_ = false; }
    InWork(const InWork&) = delete;
    InWork& operator=(const InWork&) = delete;

 private:
    bool& flag_;
};

}  // namespace

void readSwept(DriverDoor& driver, LevelSink& sink) {
    float level = 0;
    for (int i = sink.first(), last = sink.last(); i <= last; ++i) {
        level = sink.before(i, level);
        driver.HM_GetEspectro(sink.frequency(i), level);
        sink.take(i, level);
    }
}

void FrameRun::start(float from, float to, int stepKhz) {
    ask(from, to, stepKhz);
    clock_.enabled = true;
}

void FrameRun::ask(float from, float to, int stepKhz) {
    asked_ = {from, to, stepKhz};
    halted_ = false;
    program_.driver.HM_StartEspectro(from, to, stepKhz);
}

void FrameRun::halt() {
    program_.driver.HM_Parar();
    halted_ = true;
}

void FrameRun::look() {
    if (inWork_) return;
    if (program_.driver.HM_TramaEspectroRecibida() == 0) {
        if (halted_) ask(asked_.from, asked_.to, asked_.stepKhz);
        return;
    }
    const InWork inWork(inWork_);
    sink_.roundBegins();
    readSwept(program_.driver, sink_);
    sink_.roundEnds();
}

}  // namespace hmonitor
