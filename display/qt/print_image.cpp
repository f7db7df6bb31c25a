// SPDX-License-Identifier: GPL-3.0-or-later
#include <QPrinter>
#include <QPrinterInfo>

#include "display/qt/page_writer.h"
#include "display/qt/qt_desktop.h"

namespace display::qt {

std::string QtDesktop::preparePrinter(QPrinter& printer) const {
    const QPrinterInfo chosen = QPrinterInfo::defaultPrinter();
    if (chosen.isNull()) {
        return spanish() ? "No hay ninguna impresora configurada en este equipo."
                         : "No printer is set up on this computer.";
    }
    printer.setPrinterName(chosen.printerName());
    return {};
}

std::string QtDesktop::printContent(const PageContent& content) const {
    QPrinter printer(QPrinter::HighResolution);
    if (std::string wrong = preparePrinter(printer); !wrong.empty()) return wrong;
    printer.setDocName("HMonitor");
    if (writePage(printer, content)) return {};
    return spanish() ? "La impresora no acepta el trabajo de impresión."
                     : "The printer does not take the print job.";
}

std::string QtDesktop::printImage(const std::vector<const Form*>& forms) {
    std::vector<const Form*> shown;
    for (const Form* form : forms) {
        if (form->visible) shown.push_back(form);
    }
    return shown.empty() ? std::string() : printContent(pageOfForms(shown));
}

std::string QtDesktop::printSheet(const Panel& sheet) {
    return printContent(pageOfSheet(sheet));
}

}  // namespace display::qt
