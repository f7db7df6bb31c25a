// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/look.h"

namespace hmonitor::look {

/// The title in the strip of a window of that width.
constexpr display::Box titleBox(float windowWidth) {
    return {240, 120, windowWidth - 480, 260};
}

}  // namespace hmonitor::look
