// SPDX-License-Identifier: GPL-3.0-or-later
#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>

#include "display/qt/painting/drawing_picture.h"

#include <string>
#include <vector>

#include "display/qt/painting/page_painter.h"
#include "display/qt/painting/page_writer.h"
#include "display/qt/painting/print_paper.h"
#include "display/qt/windows/qt_desktop.h"

namespace display::qt {

namespace {

/// A PDF in memory.
class PdfBytes {
 public:
    explicit PdfBytes(const Paper& paper) : buffer_(&bytes_), writer_(&buffer_) {
        buffer_.open(QIODevice::WriteOnly);
        writer_.setCreator(QStringLiteral("HMonitor"));
        layOutSheet(writer_, paper);
    }
    QPdfWriter& writer() { return writer_; }
    std::string bytes() const { return bytes_.toStdString(); }

 private:
    QByteArray bytes_;
    QBuffer buffer_;
    QPdfWriter writer_;
};

std::string pdfOf(const PageContent& content, const Paper& paper) {
    PdfBytes pdf(paper);
    pdf.writer().setPageMargins(kContentMargins, QPageLayout::Millimeter);
    return writePage(pdf.writer(), content) ? pdf.bytes() : std::string();
}

}  // namespace

std::string QtDesktop::pdfOfImage(const std::vector<const Form*>& forms) {
    return pdfOf(pageOfForms(shownOf(forms)), paper());
}

std::string QtDesktop::pdfOfSheet(const Panel& sheet) {
    return pdfOf(pageOfSheet(sheet), paper());
}

std::string QtDesktop::pdfOfDrawing(Control& drawing) const {
    const DrawingPicture picture(drawing, 1);
    return pdfOf({picture.size(),
                  [&picture](QPainter& painter, qreal devicePixelsPerTwip) {
                      // The picture takes a painter whose unit is a device pixel.
                      painter.scale(1 / devicePixelsPerTwip, 1 / devicePixelsPerTwip);
                      picture.paint(painter, devicePixelsPerTwip);
                  }},
                 paper());
}

std::string QtDesktop::pdfOfPages(const PageDocument& document, int first, int last) {
    PdfBytes pdf(paper());
    QPdfWriter& writer = pdf.writer();
    QPainter painter(&writer);
    paintPages(painter, document, first, last, writer.resolution(),
               [&writer] { writer.newPage(); });
    painter.end();
    return pdf.bytes();
}

}  // namespace display::qt
