// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <deque>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <random>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "display/desktop.h"
#include "display/form.h"
#include "display/hand.h"
#include "display/open_question.h"
#include "display/page.h"
#include "display/save_question.h"

namespace display {

/// Thrown for a question that the test's script does not answer: the test is wrong.
class Unscripted : public std::logic_error {
 public:
    using std::logic_error::logic_error;
};

/// The desktop without a screen: a virtual clock, scripted answers, and a journal of what was
/// shown. A whole day of measuring runs in seconds.
class HeadlessDesktop final : public Desktop {
 public:
    explicit HeadlessDesktop(int userLanguageId = 0x0409) : languageId(userLanguageId) {}

    // The script: set by the test.
    int languageId;
    /// The local date, which stands still. In UTC the wall clock goes on from it with the virtual
    /// clock.
    Date date{2026, 5, 4, 1, 12, 0, 0};
    std::chrono::seconds fromUtc{0};
    std::string zone = "UTC";
    std::filesystem::path workingFolder;
    /// How long each work takes on the virtual clock. It is done inside the call that asks for it,
    /// so that a test sees one order alone; what came of it is taken when that time has passed.
    Time workTakes{0};
    std::deque<double> randoms;  ///< the next random numbers
    /// One answer for each message box. For a question "Cancel" means cancel; any other text means
    /// OK.
    std::deque<std::string> boxAnswers;
    /// Called while a box is open.
    std::function<void()> duringBox;
    bool answerEveryBox = false;
    std::string printerFault;
    /// One path for each question where to write a file, empty for "Cancel"; `answerEveryBox`
    /// answers "Cancel", too.
    std::deque<std::string> saveAnswers;
    std::string writeFault;
    /// One for each question which file is to be read, in the same way.
    std::deque<std::string> openAnswers;
    Paper paperSize = kA4;
    /// The user's actions when a form of that name is shown modally.
    std::map<std::string, std::function<void(Form&)>> modalScripts;
    /// Called at each letEventsThrough(), before the queue.
    std::function<void()> onPass;

    /// After the scripted random numbers, a generator with this seed is used.
    void seedRandom(unsigned seed);

    /// Twice the size of a usual screen, so that windows fit side by side.
    Box screen{0, 0, 40000, 20000};

    // What happened: read by the test.
    std::vector<std::string> journal;
    std::vector<MessageBox> boxes;
    std::string clipboard;
    /// The drawings whose pictures were copied to the clipboard.
    std::vector<const Control*> copiedPictures;
    std::vector<SaveQuestion> saveQuestions;
    std::vector<OpenQuestion> openQuestions;
    std::map<std::string, std::string> writtenFiles;
    PointerShape pointerShape = PointerShape::Arrow;
    int beeps = 0;
    /// The last control that was given the focus; null when its form was destroyed.
    Control* focus = nullptr;
    int passes = 0;
    std::vector<std::vector<const Form*>> printed;
    /// The panels that were printed, and a function that is called while one is.
    std::vector<const Panel*> printedSheets;
    std::function<void(const Panel&)> duringSheet;
    struct PrintedPages {
        PageDocument document;
        int first = 0;
        int last = 0;
    };
    std::vector<PrintedPages> printedPages;
    /// The same for those that became a PDF.
    std::vector<PrintedPages> pdfPages;
    std::string helpShown;

    /// Lets time pass and delivers every timer and all input that become due.
    void advance(Time time);
    /// Delivers what is due now, without letting time pass.
    void settle() { advance(Time{0}); }
    /// Lets time pass inside a handler, as a slow driver call does.
    void elapse(Time time) { now_ += time; }

    void note(std::string line) { journal.push_back(std::move(line)); }

    Hand hand{*this};

    Time now() const override { return now_; }
    Date today() const override;
    WallTime wallTime() const override;
    std::filesystem::path folder() const override { return workingFolder; }
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
    std::optional<std::string> askWhatToOpen(const OpenQuestion& question) override;
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
    void tellStarter(std::string_view sentence) override;

 protected:
    void ending() override { note("end"); }
    void startWork(std::function<void()> fn, std::function<void()> done) override;

 private:
    Time now_{0};
    bool seeded_ = false;
    std::mt19937 generator_;
};

}  // namespace display
