// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "drivers/hm16.h"
#include "drivers/hm16_more.h"

namespace hm16 {

class HostedLibrary;

// The nineteen functions as C functions that call `library`, which is the one in use from here on.
// `optional` says which of the three that are never called it has.
HM16_Functions hostedFunctions(HostedLibrary& library, std::uint32_t optional);

// HM16_Extension of the library in use.
HM16_ExtensionFunction hostedExtension();

// The library goes away: its functions do nothing any more.
void forgetHosted(const HostedLibrary& library);

}  // namespace hm16
