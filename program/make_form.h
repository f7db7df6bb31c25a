// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "display/form.h"
#include "program/program.h"

namespace hmonitor {

/// Makes a form of the program, which fills its slot. Each form says so once, in its own .cpp,
/// where alone its class is whole:
///     template MadeForm makeForm(Program&, Slot<FormOvers>&);
template <class FormType>
MadeForm makeForm(Program& program, Slot<FormType>& slot) {
    auto form = std::make_unique<FormType>(program);
    slot.fill(*form);
    return form;
}

}  // namespace hmonitor
