// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/controls/pictures.h"

namespace display {

bool Picture::interactive() const {
    return onPress || onRelease || onClick;
}

bool PictureBox::interactive() const {
    return static_cast<bool>(onDoubleClick);
}

}  // namespace display
