// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "spectrum/picture_sheet.h"

namespace hmonitor {

/// The page of the modulation bandwidth.
class FormD1aP final : public PictureSheet {
 public:
    explicit FormD1aP(Program& program);

 protected:
    void layOut() override;
};

}  // namespace hmonitor
