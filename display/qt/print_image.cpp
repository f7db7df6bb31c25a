// SPDX-License-Identifier: GPL-3.0-or-later
#include <QPrinter>

#include "display/qt/page_writer.h"
#include "display/qt/qt_desktop.h"

namespace display::qt {

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

}  // namespace display::qt
