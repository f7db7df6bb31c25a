// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/program_form.h"

namespace hmonitor {

/// The analyses panel of the rack: doors to the long analyses and four small things about the
/// tuned station.
class Form_D final : public ProgramForm {
 public:
    explicit Form_D(Program& program);

    void spect();     ///< shows the stored spectrum of the tuned frequency
    void respo();     ///< shows the stored response of the tuned frequency
    void resborra();  ///< shows the empty response

    display::Picture Image5{*this, "Image5"};  ///< the response switch
    display::TextField Text1{*this, "Text1"};      ///< radiated power
    display::TextField Text2{*this, "Text2"};      ///< highest modulation
    display::TextField Text3{*this, "Text3"};      ///< silence
    display::TextField Text4{*this, "Text4"};      ///< inverted phase

 protected:
    void layOut() override;
};

}  // namespace hmonitor
