// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/page_file.h"

#include "display/number_table.h"
#include "display/save_question.h"
#include "program/language.h"

namespace hmonitor {

void savePageAsPdf(Program& program, display::Language language, const PageName& name,
                   const std::function<std::string()>& pdf) {
    display::SaveQuestion question;
    question.title = wordsIn(language, {"Guardar como PDF", "Save as PDF"});
    question.stem = display::fileStem(name.station, name.title);
    question.kinds = {{std::string(wordsIn(language, {"Página", "Page"})), "pdf"}};
    const auto path = program.desktop.askWhereToSave(question);
    if (!path) return;
    // The disk may be slow; the rack goes on meanwhile.
    program.desktop.work([&desktop = program.desktop, path = *path,
                          bytes = pdf()] { return desktop.writeFile(path, bytes); },
                         [&program](const std::string& fault) {
                             if (fault.empty()) return;
                             program.desktop.messageBox(
                                 {program.words.gModel.str(), fault, display::BoxIcon::Critical});
                         });
}

void likePdfKey(display::Key& key) {
    key.caption = kPdfCaption;
    key.says = kPdfTip;
    key.tip = kPdfTip;
}

}  // namespace hmonitor
