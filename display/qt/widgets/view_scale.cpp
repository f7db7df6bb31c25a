// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/widgets/view_scale.h"

#include <QWidget>

#include "display/qt/windows/form_view.h"
#include "display/qt/windows/qt_desktop.h"

namespace display::qt {

const Scale& viewScale(const QWidget& widget, const QtDesktop& desktop) {
    for (const QWidget* in = widget.parentWidget(); in; in = in->parentWidget()) {
        if (const auto* view = dynamic_cast<const FormView*>(in)) return view->scale();
    }
    return desktop.scale();
}

}  // namespace display::qt
