// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "panels/modulation/form_of_page.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {

/// The bench with one form more, that of docs/writing-a-form.md, as if the list of forms had it.
class PageBench : public RackBench {
 public:
    PageBench() : made_(makeForm(RackBench::program, program.FormOfPage)) {}

    struct {
        Slot<hmonitor::FormOfPage> FormOfPage;
    } program;

 private:
    MadeForm made_;
};

}  // namespace hmonitor::test
