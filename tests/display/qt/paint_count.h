// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QEvent>
#include <QWidget>
#include <memory>
#include <vector>

#include "display/qt/windows/form_view.h"

namespace display::qt {

/// Counts the paint events of a widget.
class PaintCount final : public QObject {
 public:
    explicit PaintCount(QWidget* watched) { watched->installEventFilter(this); }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++count;
        return QObject::eventFilter(watched, event);
    }
    int count = 0;
};

/// A count for each chart of a form.
inline std::vector<std::unique_ptr<PaintCount>> chartPaintsOf(const FormView& view) {
    std::vector<std::unique_ptr<PaintCount>> charts;
    for (QWidget* widget : view.window()->findChildren<QWidget*>())
        if (widget->inherits("QCustomPlot")) charts.push_back(std::make_unique<PaintCount>(widget));
    return charts;
}

}  // namespace display::qt
