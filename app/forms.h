// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "program/form_list.h"
#include "program/program.h"
#include "program/tuner.h"

namespace hmonitor {

/// Owns every form of the program, and the tuner, for the whole run and fills the program's slots
/// with them. Who looks into a form includes its header.
class Forms {
 public:
    explicit Forms(Program& program, Brand brand = Brand::Marvenia);
    ~Forms();

    hmonitor::Tuner tuner;

 private:
    /// In the order of the list; the last goes first.
    class Made {
     public:
        Made(Program& program, Brand brand);
        ~Made();

     private:
        std::vector<MadeForm> forms_;
    };
    Made made_;

 public:
#define HMONITOR_NAME(form, name) hmonitor::form& name;
    HMONITOR_EACH_FORM(HMONITOR_NAME)
#undef HMONITOR_NAME
};

}  // namespace hmonitor
