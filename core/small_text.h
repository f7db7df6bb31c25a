// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/small_text.h"

namespace hmonitor {

using base::SmallText;

}  // namespace hmonitor
