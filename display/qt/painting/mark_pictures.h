// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "display/qt/painting/pictures.h"

namespace display::qt {

/// The lamps, logos, markers and signs.
const std::vector<NamedPicture>& markPictures();

}  // namespace display::qt
