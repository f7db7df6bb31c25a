// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/headless/headless_desktop.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace display {

void HeadlessDesktop::seedRandom(unsigned seed) {
    seeded_ = true;
    generator_.seed(seed);
}

double HeadlessDesktop::random() {
    if (!randoms.empty()) {
        const double drawn = randoms.front();
        randoms.pop_front();
        return drawn;
    }
    if (!seeded_) throw Unscripted("a random number was drawn that no script gives");
    return static_cast<double>(generator_()) / 4294967296.0;
}

void HeadlessDesktop::advance(Time time) {
    const Time end = now_ + time;
    try {
        while (!ended()) {
            endIfWanted();
            const auto due = queue().nextDue();
            if (!due || *due > end) break;
            now_ = std::max(now_, *due);
            queue().runDue();
        }
    } catch (const ProgramEnded&) {
        return;
    }
    now_ = std::max(now_, end);
}

Date HeadlessDesktop::today() const {
    return date;
}

WallTime HeadlessDesktop::wallTime() const {
    using namespace std::chrono;
    const sys_days day = year(date.year) / month(static_cast<unsigned>(date.month)) / date.day;
    const auto local = day + hours(date.hour) + minutes(date.minute) + seconds(date.second);
    return {local - fromUtc + duration_cast<milliseconds>(now_), fromUtc, zone};
}

void HeadlessDesktop::startWork(std::function<void()> fn, std::function<void()> done) {
    fn();
    queue().postResult(now_ + workTakes, std::move(done));
}

namespace {

bool spanish(int languageId) {
    return (languageId & 0x3ff) == 10;
}

constexpr std::array<const char*, 12> kMonthsEn = {"January",   "February", "March",    "April",
                                                   "May",       "June",     "July",     "August",
                                                   "September", "October",  "November", "December"};
constexpr std::array<const char*, 12> kMonthsEs = {
    "enero", "febrero", "marzo",      "abril",   "mayo",      "junio",
    "julio", "agosto",  "septiembre", "octubre", "noviembre", "diciembre"};
constexpr std::array<const char*, 7> kDaysEn = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                "Thursday", "Friday", "Saturday"};
constexpr std::array<const char*, 7> kDaysEs = {"domingo", "lunes",   "martes", "miércoles",
                                                "jueves",  "viernes", "sábado"};

}  // namespace

std::string HeadlessDesktop::monthName(int month) const {
    const auto i = static_cast<std::size_t>(month);
    return spanish(languageId) ? kMonthsEs.at(i) : kMonthsEn.at(i);
}

std::string HeadlessDesktop::shortMonthName(int month) const {
    return monthName(month).substr(0, 3);
}

std::string HeadlessDesktop::weekdayName(int weekday) const {
    const auto i = static_cast<std::size_t>(weekday);
    return spanish(languageId) ? kDaysEs.at(i) : kDaysEn.at(i);
}

void HeadlessDesktop::messageBox(const MessageBox& box) {
    (void)ask(box);
}

BoxAnswer HeadlessDesktop::ask(const MessageBox& box) {
    if (boxAnswers.empty() && !answerEveryBox) {
        throw Unscripted("a message box that no script answers: " + box.title + ": " + box.text);
    }
    std::string answer;
    if (!boxAnswers.empty()) {
        answer = boxAnswers.front();
        boxAnswers.pop_front();
    }
    note("box " + box.title + ": " + box.text);
    boxes.push_back(box);
    if (duringBox) duringBox();
    endIfWanted();
    return answer == "Cancel" ? BoxAnswer::Cancel : BoxAnswer::Ok;
}

void HeadlessDesktop::letEventsThrough() {
    ++passes;
    if (onPass) onPass();
    queue().letThrough();
}

void HeadlessDesktop::setClipboardPicture(Control& drawing) {
    note("copy picture " + drawing.name());
    copiedPictures.push_back(&drawing);
}

std::string HeadlessDesktop::pictureOf(Control& drawing, PictureFormat format) {
    const char* const kind = format == PictureFormat::Svg   ? "svg of "
                             : format == PictureFormat::Pdf ? "pdf of "
                                                            : "png of ";
    return kind + drawing.name();
}

std::optional<std::string> HeadlessDesktop::askWhereToSave(const SaveQuestion& question) {
    if (saveAnswers.empty() && !answerEveryBox) {
        throw Unscripted("a place for a file that no script tells: " + question.stem);
    }
    note("save " + question.stem);
    saveQuestions.push_back(question);
    std::string path;
    if (!saveAnswers.empty()) {
        path = saveAnswers.front();
        saveAnswers.pop_front();
    }
    if (path.empty()) return std::nullopt;
    return withEnding(path, question.kinds, question.kinds.front());
}

std::optional<std::string> HeadlessDesktop::askWhatToOpen(const OpenQuestion& question) {
    if (openAnswers.empty() && !answerEveryBox) {
        throw Unscripted("a file to be read that no script names: " + question.title);
    }
    note("open " + question.title);
    openQuestions.push_back(question);
    if (openAnswers.empty()) return std::nullopt;
    const std::string path = openAnswers.front();
    openAnswers.pop_front();
    if (path.empty()) return std::nullopt;
    return path;
}

std::string HeadlessDesktop::writeFile(std::string_view path, std::string_view bytes) {
    note("write " + std::string(path));
    if (writeFault.empty()) writtenFiles[std::string(path)] = bytes;
    return writeFault;
}

namespace {

std::string namesOf(const std::vector<const Form*>& forms) {
    std::string names;
    for (const Form* form : forms) names += " " + form->name();
    return names;
}

}  // namespace

std::string HeadlessDesktop::pdfOfImage(const std::vector<const Form*>& forms) {
    return "pdf of" + namesOf(forms);
}

std::string HeadlessDesktop::pdfOfSheet(const Panel& sheet) {
    if (duringSheet) duringSheet(sheet);
    return "pdf of sheet of " + sheet.form().name();
}

std::string HeadlessDesktop::pdfOfPages(const PageDocument& document, int first, int last) {
    pdfPages.push_back({document, first, last});
    return "pdf of pages";
}

std::string HeadlessDesktop::printImage(const std::vector<const Form*>& forms) {
    note("print" + namesOf(forms));
    printed.push_back(forms);
    return printerFault;
}

std::string HeadlessDesktop::printSheet(const Panel& sheet) {
    note("print sheet of " + sheet.form().name());
    printedSheets.push_back(&sheet);
    if (duringSheet) duringSheet(sheet);
    return printerFault;
}

std::string HeadlessDesktop::printPages(const PageDocument& document, int first, int last) {
    note("print pages");
    printedPages.push_back({document, first, last});
    return printerFault;
}

void HeadlessDesktop::showHelp(std::string_view fileName) {
    note("help " + std::string(fileName));
    helpShown = fileName;
}

void HeadlessDesktop::formShown(Form& form) {
    note("show " + form.name());
    if (form.visible && form.raisesResizeAtShow()) form.resized();
}

void HeadlessDesktop::giveFocus(Control& control) {
    if (control.shown()) focus = &control;
}

void HeadlessDesktop::formHidden(Form& form) {
    if (focus && &focus->form() == &form) focus = nullptr;
    note("hide " + form.name());
}

void HeadlessDesktop::runModal(Form& form) {
    const auto script = modalScripts.find(form.name());
    if (script == modalScripts.end()) {
        throw Unscripted("a modal form that no script answers: " + form.name());
    }
    note("modal " + form.name());
    queue().pushModal(form);
    script->second(form);
    while (form.visible && !ended()) {
        endIfWanted();
        if (!queue().inputWaits()) throw Unscripted("the modal form was left open: " + form.name());
        queue().runModalPass();
    }
    queue().popModal();
}

void HeadlessDesktop::tellStarter(std::string_view sentence) {
    note("tell " + std::string(sentence));
}

void HeadlessDesktop::formMinimised(Form& form) {
    note("fold " + form.name());
    form.resized();
}

}  // namespace display
