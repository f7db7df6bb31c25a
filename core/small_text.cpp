// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/small_text.h"

#include <ostream>

namespace hmonitor {

std::ostream& operator<<(std::ostream& out, const SmallText& text) {
    return out << text.view();
}

}  // namespace hmonitor
