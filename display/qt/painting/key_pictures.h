// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "display/qt/painting/pictures.h"

namespace display::qt {

/// The keys of the panels, released (N) and pressed or lit (A).
const std::vector<NamedPicture>& keyPictures();

}  // namespace display::qt
