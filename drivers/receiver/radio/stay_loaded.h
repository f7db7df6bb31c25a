// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace hm16::receiver {

// Keeps the library that this code was linked into in memory until the program ends: for a thread
// that cannot be waited for, because it stands inside a radio's driver.
void stayLoaded();

}  // namespace hm16::receiver
