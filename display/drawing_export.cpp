// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/drawing_export.h"

#include <algorithm>
#include <string>

#include "display/form.h"
#include "display/number_table.h"
#include "display/save_question.h"

namespace display {

namespace {

const char* in(Language language, const Words& words) {
    return language == Language::Spanish ? words.spanish : words.english;
}

bool isDrawing(const Control* control) {
    return control && control->numbers;
}

std::string bytesOf(Control& drawing, const NumberTable& table, const std::string& ending) {
    if (ending == "csv") return csvText(table);
    return drawing.form().desktop().pictureOf(drawing, ending == "svg"   ? PictureFormat::Svg
                                                       : ending == "pdf" ? PictureFormat::Pdf
                                                                         : PictureFormat::Png);
}

}  // namespace

Control* drawingMeant(const Form& form, const Control* focused) {
    const auto& controls = form.controls();
    const auto shown = [](const Control* control) {
        return isDrawing(control) && control->shown();
    };
    const auto meant = std::ranges::find_if(
        controls, [&](const Control* control) { return control == focused && shown(control); });
    if (meant != controls.end()) return *meant;
    const auto first = std::ranges::find_if(controls, shown);
    return first == controls.end() ? nullptr : *first;
}

bool hasDrawings(const Form& form) {
    return std::ranges::any_of(form.controls(), isDrawing);
}

void copyNumbers(Control& drawing) {
    drawing.form().desktop().setClipboardText(csvText(drawing.numbers()));
}

void copyPicture(Control& drawing) {
    drawing.form().desktop().setClipboardPicture(drawing);
}

void saveDrawing(Control& drawing) {
    Desktop& desktop = drawing.form().desktop();
    const Language language = drawing.form().language;
    const NumberTable table = drawing.numbers();
    SaveQuestion question;
    question.title = in(language, {"Guardar", "Save"});
    question.stem = fileStem(table.station, table.title);
    question.kinds = {{in(language, {"Imagen", "Picture"}), "png"},
                      {in(language, {"Dibujo vectorial", "Vector drawing"}), "svg"},
                      {in(language, {"Números", "Numbers"}), "csv"},
                      {in(language, {"Página", "Page"}), "pdf"}};
    const auto path = desktop.askWhereToSave(question);
    if (!path) return;
    const SaveQuestion::Kind* kind = kindOf(*path, question.kinds);
    const std::string ending = kind ? kind->ending : question.kinds.front().ending;
    // The disk may be slow; the rack goes on meanwhile.
    desktop.work(
        [&desktop, path = *path, bytes = bytesOf(drawing, table, ending)] {
            return desktop.writeFile(path, bytes);
        },
        [&desktop, title = table.title](const std::string& fault) {
            if (!fault.empty()) desktop.messageBox({title, fault, BoxIcon::Critical});
        });
}

}  // namespace display
