// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "display/desktop.h"
#include "display/form.h"
#include "display/hand.h"
#include "display/page.h"
#include "display/save_question.h"

namespace display {

/// A question that no script answers: the test that runs into it is wrong.
class Unscripted : public std::logic_error {
 public:
    using std::logic_error::logic_error;
};

/// The desktop without a screen: virtual clock, scripted answers, a journal of what was shown. A
/// whole day of measuring runs in seconds.
class HeadlessDesktop final : public Desktop {
 public:
    explicit HeadlessDesktop(int userLanguageId = 0x0409) : languageId(userLanguageId) {}

    // What the script says.
    int languageId;
    Date date{2026, 5, 4, 1, 12, 0, 0};
    std::deque<double> randoms;  ///< the next draws
    /// One for each message box; the text is free, but for "Cancel" as the answer to a question.
    std::deque<std::string> boxAnswers;
    /// What happens while a box stands.
    std::function<void()> duringBox;
    bool answerEveryBox = false;
    std::string printerFault;
    /// One for each question where a file is to be written: the path, empty for "Cancel", which
    /// is also the answer where `answerEveryBox` answers.
    std::deque<std::string> saveAnswers;
    std::string writeFault;
    Paper paperSize = kA4;
    /// What the user does when a form of that name is shown modally.
    std::map<std::string, std::function<void(Form&)>> modalScripts;
    /// Called at each pass of waiting events, before the queue's own.
    std::function<void()> onPass;

    /// From here on draws come from a generator of this seed once the script is used up.
    void seedRandom(unsigned seed);

    /// Twice a usual screen, so that windows stand side by side.
    Box screen{0, 0, 40000, 20000};

    // What was seen.
    std::vector<std::string> journal;
    std::vector<MessageBox> boxes;
    std::string clipboard;
    /// The drawings whose pictures went to the clipboard.
    std::vector<const Control*> copiedPictures;
    std::vector<SaveQuestion> saveQuestions;
    std::map<std::string, std::string> writtenFiles;
    PointerShape pointerShape = PointerShape::Arrow;
    int beeps = 0;
    /// Where the keyboard was last given to; null when that form went away.
    Control* focus = nullptr;
    int passes = 0;
    std::vector<std::vector<const Form*>> printed;
    /// The sheets that were printed, and what happens while one is.
    std::vector<const Panel*> printedSheets;
    std::function<void(const Panel&)> duringSheet;
    struct PrintedPages {
        PageDocument document;
        int first = 0;
        int last = 0;
    };
    std::vector<PrintedPages> printedPages;
    /// The same of what became a file.
    std::vector<PrintedPages> pdfPages;
    std::string helpShown;

    /// Lets time pass: every timer and all input that falls due.
    void advance(Time time);
    /// Handles what waits, without letting time pass.
    void settle() { advance(Time{0}); }
    /// Time that passes inside a handler, as a slow driver call takes it.
    void elapse(Time time) { now_ += time; }

    void note(std::string line) { journal.push_back(std::move(line)); }

    Hand hand{*this};

    Time now() const override { return now_; }
    Date today() const override;
    std::string monthName(int month) const override;
    std::string shortMonthName(int month) const override;
    std::string weekdayName(int weekday) const override;
    int userLanguageId() const override { return languageId; }
    double random() override;
    void messageBox(const MessageBox& box) override;
    BoxAnswer ask(const MessageBox& box) override;
    void letEventsThrough() override;
    Box room(const Form&) const override { return screen; }
    void pointer(PointerShape shape) override { pointerShape = shape; }
    void beep() override { ++beeps; }
    void giveFocus(Control& control) override;
    void setClipboardText(std::string_view text) override { clipboard = text; }
    void setClipboardPicture(Control& drawing) override;
    /// A line that names the drawing and the format.
    std::string pictureOf(Control& drawing, PictureFormat format) override;
    std::optional<std::string> askWhereToSave(const SaveQuestion& question) override;
    std::string writeFile(std::string_view path, std::string_view bytes) override;
    std::string printImage(const std::vector<const Form*>& forms) override;
    std::string printSheet(const Panel& sheet) override;
    std::string printPages(const PageDocument& document, int first, int last) override;
    /// A line that names the forms or the pages.
    std::string pdfOfImage(const std::vector<const Form*>& forms) override;
    std::string pdfOfSheet(const Panel& sheet) override;
    std::string pdfOfPages(const PageDocument& document, int first, int last) override;
    Paper paper() const override { return paperSize; }
    void showHelp(std::string_view fileName) override;
    void formShown(Form& form) override;
    void formHidden(Form& form) override;
    void runModal(Form& form) override;
    void formMinimised(Form& form) override;

 protected:
    void ending() override { note("end"); }

 private:
    Time now_{0};
    bool seeded_ = false;
    std::mt19937 generator_;
};

}  // namespace display
