// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/widgets/page_preview_widget.h"

#include <QGraphicsView>
#include <QPainter>
#include <QScrollBar>
#include <QWidget>
#include <limits>

#include "display/qt/painting/page_painter.h"
#include "display/qt/painting/palette.h"
#include "display/qt/painting/print_paper.h"
#include "display/qt/painting/print_queue.h"
#include "display/qt/widgets/key_widgets.h"
#include "display/qt/windows/qt_desktop.h"

namespace display::qt {

namespace {

/// Qt looks for a printer as soon as a page is created, and would wait for a silent server.
QPrinter::PrinterMode modeOnceAsked() {
    (void)askPrintSystem();
    return QPrinter::HighResolution;
}

}  // namespace

PagePreviewWidget::PagePreviewWidget(QtDesktop& desktop, PagePreview& preview, QWidget* parent)
    : QWidget(parent),
      desktop_(desktop),
      preview_(preview),
      printer_(modeOnceAsked()),
      view_(new QPrintPreviewWidget(&printer_, this)) {
    // A page that belongs to no printer: no print server is asked for it.
    printer_.setOutputFormat(QPrinter::PdfFormat);
    connect(view_, &QPrintPreviewWidget::paintRequested, this,
            [this](QPrinter* sheets) { paint(*sheets); });
    sheets_ = view_->findChild<QGraphicsView*>();
    if (!sheets_) return;
    sheets_->setBackgroundBrush(QColor(kWellTop));
    setFocusProxy(sheets_);
}

void PagePreviewWidget::paint(QPrinter& sheets) const {
    QPainter painter;
    if (!painter.begin(&sheets)) return;
    paintPages(painter, preview_.document(), 1, std::numeric_limits<int>::max(),
               sheets.resolution(), [&sheets] { sheets.newPage(); });
}

void PagePreviewWidget::sync() {
    setFocusPolicy(focusPolicyOf(preview_, Qt::ClickFocus));
    const bool another = drawn_ != preview_.shownDocuments();
    if (another) {
        drawn_ = preview_.shownDocuments();
        layOutSheet(printer_, desktop_.paper());
        view_->updatePreview();
        view_->setCurrentPage(1);
    }
    view_->setZoomFactor(preview_.zoom / 100.0);
    // Keeps the scroll position when the page is drawn again.
    const bool empty = preview_.document().pages().empty();
    if (another && empty_ && sheets_)
        sheets_->verticalScrollBar()->setValue(sheets_->verticalScrollBar()->minimum());
    if (another) empty_ = empty;
}

void PagePreviewWidget::resizeEvent(QResizeEvent*) {
    view_->setGeometry(rect());
}

}  // namespace display::qt
