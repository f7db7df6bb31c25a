// SPDX-License-Identifier: GPL-3.0-or-later
#include <QPrinter>
#include <QPrinterInfo>

#include "display/qt/print_queue.h"
#include "display/qt/qt_desktop.h"

namespace display::qt {

std::unique_ptr<QPrinter> QtDesktop::readyPrinter(std::string& wrong) const {
    // Before anything of Qt's: it would wait for a server that does not answer.
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

}  // namespace display::qt
