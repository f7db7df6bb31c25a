// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/controls/pictures.h"

namespace display {

bool Picture::interactive() const {
    return onPress || onRelease || onClick;
}

bool PictureBox::interactive() const {
    return static_cast<bool>(onDoubleClick);
}

Place PictureBox::placeOf(double x, double y) const {
    const double unit = drawing.unit();
    return {static_cast<float>(x * unit), static_cast<float>(y * unit)};
}

}  // namespace display
