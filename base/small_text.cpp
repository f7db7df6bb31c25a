// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/small_text.h"

#include <ostream>

namespace base {

std::ostream& operator<<(std::ostream& out, const SmallText& text) {
    return out << text.view();
}

}  // namespace base
