// SPDX-License-Identifier: GPL-3.0-or-later
#include <QLocale>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QTemporaryFile>

#include "display/qt/painting/page_painter.h"

#include <memory>
#include <string>
#include <vector>

#include "display/qt/painting/page_writer.h"
#include "display/qt/painting/print_paper.h"
#include "display/qt/painting/print_queue.h"
#include "display/qt/widgets/control_widget.h"
#include "display/qt/windows/qt_desktop.h"

namespace display::qt {

namespace {

/// Why a page has no room on its way to the printer, empty where it has. The print system's library
/// takes it from a temporary file, and nobody says that this was cut short: half a page is printed.
QString noRoomForAPage() {
    constexpr qsizetype kLargePage = 4 << 20;
    QTemporaryFile file;
    const QByteArray page(kLargePage, ' ');
    if (file.open() && file.write(page) == page.size() && file.flush()) return {};
    return file.errorString();
}

}  // namespace

std::unique_ptr<QPrinter> QtDesktop::readyPrinter(std::string& wrong) const {
    // Before Qt is asked for a printer: it would wait for a server that does not answer.
    if (askPrintSystem() == PrintSystem::Silent) {
        wrong = spanish() ? "El sistema de impresión de este equipo no responde."
                          : "The print system of this computer does not answer.";
        return nullptr;
    }
    const QPrinterInfo chosen = QPrinterInfo::defaultPrinter();
    if (chosen.isNull()) {
        wrong = spanish() ? "No hay ninguna impresora configurada en este equipo."
                          : "No printer is set up on this computer.";
        return nullptr;
    }
    if (const QString reason = noRoomForAPage(); !reason.isEmpty()) {
        wrong = (spanish() ? "No hay lugar en el disco para la página: "
                           : "There is no room on the disk for the page: ") +
                utf8(reason);
        return nullptr;
    }
    auto printer = std::make_unique<QPrinter>(chosen, QPrinter::HighResolution);
    printer->setDocName(QStringLiteral("HMonitor"));
    return printer;
}

std::string QtDesktop::notTaken() const {
    return spanish() ? "La impresora no acepta el trabajo de impresión."
                     : "The printer does not take the print job.";
}

std::string QtDesktop::takenBy(const QPrinter& printer) const {
    const std::string said =
        printer.outputFormat() == QPrinter::NativeFormat ? lastQueueFault() : std::string();
    if (said.empty()) return {};
    std::string fault = notTaken();
    fault.back() = ':';
    return fault + " " + said;
}

std::vector<const Form*> QtDesktop::shownOf(const std::vector<const Form*>& forms) {
    std::vector<const Form*> shown;
    for (const Form* form : forms) {
        if (form->visible) shown.push_back(form);
    }
    return shown;
}

std::string QtDesktop::printContent(const PageContent& content) const {
    std::string wrong;
    const std::unique_ptr<QPrinter> printer = readyPrinter(wrong);
    if (!printer) return wrong;
    return writePage(*printer, content) ? takenBy(*printer) : notTaken();
}

std::string QtDesktop::printImage(const std::vector<const Form*>& forms) {
    const std::vector<const Form*> shown = shownOf(forms);
    return shown.empty() ? std::string() : printContent(pageOfForms(shown));
}

std::string QtDesktop::printSheet(const Panel& sheet) {
    return printContent(pageOfSheet(sheet));
}

Paper QtDesktop::paper() const {
    const QPrinterInfo chosen =
        askPrintSystem() == PrintSystem::Answers ? QPrinterInfo::defaultPrinter() : QPrinterInfo();
    if (chosen.isNull()) {
        // The usual paper of the user's country.
        const bool inches = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
        return inches ? kLetter : kA4;
    }
    const QSizeF points = chosen.defaultPageSize().size(QPageSize::Point);
    const auto units = [](qreal length) { return static_cast<float>(length * kPageUnitsPerPoint); };
    return {units(points.width()), units(points.height())};
}

std::string QtDesktop::printPages(const PageDocument& document, int first, int last) {
    std::string wrong;
    const std::unique_ptr<QPrinter> printer = readyPrinter(wrong);
    if (!printer) return wrong;
    layOutSheet(*printer, paper());
    QPainter painter;
    if (!painter.begin(printer.get())) return notTaken();
    paintPages(painter, document, first, last, printer->resolution(),
               [&printer] { printer->newPage(); });
    painter.end();
    return takenBy(*printer);
}

}  // namespace display::qt
