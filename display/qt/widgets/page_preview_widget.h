// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QWidget>

#include "display/page.h"
#include "display/qt/widgets/control_widget.h"

class QGraphicsView;

namespace display::qt {

/// Qt's print preview of a document, on the paper of the default printer. It prints nothing itself.
class PagePreviewWidget final : public QWidget, public ControlWidget {
 public:
    PagePreviewWidget(QtDesktop& desktop, PagePreview& preview, QWidget* parent);
    QWidget& widget() override { return *this; }
    void sync() override;

    const QPrintPreviewWidget& view() const { return *view_; }

 protected:
    void resizeEvent(QResizeEvent* event) override;

 private:
    void paint(QPrinter& sheets) const;

    QtDesktop& desktop_;
    PagePreview& preview_;
    QPrinter printer_;
    QPrintPreviewWidget* view_;
    QGraphicsView* sheets_ = nullptr;
    int drawn_ = -1;     ///< the document that is shown
    bool empty_ = true;  ///< it has no page
};

}  // namespace display::qt
