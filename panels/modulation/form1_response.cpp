// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyses/response_readout.h"
#include "panels/modulation/form1.h"

namespace hmonitor {

void Form1::respolee() {
    readResponse(program);
}

}  // namespace hmonitor
