// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "drivers/host/call_page.h"
#include "drivers/loader/library.h"

namespace hm16 {

// The library's side of the page: makes each call that the program asks for, once, in their order.
class LibraryCalls {
 public:
    explicit LibraryCalls(CallPage& page) : page_(page) {}

    // The call that stands on the page. Outputs have the caller's values before it.
    void make();

 private:
    void load();
    void callFigures(CallValues& values);
    void callListen(CallValues& values);
    void callAbsence(CallValues& values);

    CallPage& page_;
    LoadResult loaded_;
    const HM16_FiguresV1* figures_ = nullptr;
    const HM16_ListenV1* listen_ = nullptr;
    const HM16_AbsenceV1* absence_ = nullptr;
};

// A refusal as it crosses the page, and back: kind, kind of file fault, and the words.
void writeRefusal(const LoadResult& result, CallPage& page);
LoadResult readRefusal(const CallPage& page);

}  // namespace hm16
