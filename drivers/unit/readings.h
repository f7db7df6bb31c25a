// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/readings.h"

namespace hm16 {

using figures::kEndMarkError;
using figures::kEndMarkLevel;
using figures::Readings;

}  // namespace hm16
