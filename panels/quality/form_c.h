// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/program_form.h"

namespace hmonitor {

/// The quality panel of the rack: pilot, noise, distortion, separation and RDS figures.
class Form_C final : public ProgramForm {
 public:
    explicit Form_C(Program& program);

    void Command1();   ///< labels and separation digits
    void Command4();   ///< 19 kHz error digits
    void Command6();   ///< pilot level digits
    void Command11();  ///< noise digits
    void Command13();  ///< distortion digits

 protected:
    void layOut() override;
};

}  // namespace hmonitor
