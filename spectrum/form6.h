// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/controls/pictures.h"
#include "spectrum/picture_sheet.h"

namespace hmonitor {

/// The page of the channel spectrum, bars and table, and of the analyzer's view, which has no
/// table.
class Form6 final : public PictureSheet {
 public:
    explicit Form6(Program& program);

    display::PictureBox Picture1B{*this, "Picture1B"};  ///< the table of values

 protected:
    void layOut() override;
};

}  // namespace hmonitor
