// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>
#include <QElapsedTimer>
#include <QPointF>
#include <QString>
#include <QTimer>
#include <QTranslator>
#include <QWidget>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "display/call_box.h"
#include "display/desktop.h"
#include "display/form.h"
#include "display/hand.h"
#include "display/page.h"
#include "display/qt/accessibility/focus_keeper.h"
#include "display/qt/accessibility/keyboard_watch.h"
#include "display/qt/painting/scale.h"
#include "display/qt/windows/desktop_motion.h"
#include "display/qt/windows/worker_threads.h"
#include "display/rack_place.h"

class QEventLoop;
class QPrinter;
class QScreen;

namespace display {
class HelpBook;
}

namespace display::qt {

class FormView;
class FormWindow;
class HelpWindow;
class RackWindow;
struct PageContent;

/// The desktop on Qt 6 Widgets. One timer wakes the queue; raw events become calls of a Hand; once
/// a frame the windows repaint what changed.
class QtDesktop : public Desktop, public CallBox {
 public:
    /// The size of the rack, in twips.
    static constexpr QSizeF kRack{12000, 7000};

    /// Uses the existing QApplication, or else owns one.
    QtDesktop(int& argc, char** argv);
    ~QtDesktop() override;

    /// The forms that share the rack's window, the leading one first. Must be called before they
    /// are shown.
    void rack(std::vector<Form*> forms);

    /// The topic of a form or of one of its controls (null for the form).
    using HelpTopic = std::function<std::string(const Form&, const Control*)>;
    /// What the help key opens; it outlives the desktop's windows. Without one there is no help.
    void book(const HelpBook& book, HelpTopic topicOf) {
        book_ = &book;
        topicOf_ = std::move(topicOf);
    }

    /// Where the rack is to stand at its first show, and how large; must be called before it.
    void placeRack(const RackPlace& place);
    RackPlace rackPlace() const;
    /// Called a moment after the user has moved or resized the rack, and before the program ends.
    std::function<void()> onRackPlaced;

    /// Calls `start`, then handles events until the program ends or, without a rack, until the last
    /// window is closed. Returns the exit status.
    int run(const std::function<void()>& start = {});

    // The interface for forms: see Desktop.
    Time now() const override;
    Date today() const override;
    WallTime wallTime() const override;
    /// The program's own folder until another is set.
    std::filesystem::path folder() const override;
    void setFolder(std::filesystem::path folder) { folder_ = std::move(folder); }
    std::string monthName(int month) const override;
    std::string shortMonthName(int month) const override;
    std::string weekdayName(int weekday) const override;
    int userLanguageId() const override { return languageId_; }
    double random() override;
    void messageBox(const MessageBox& box) override;
    BoxAnswer ask(const MessageBox& box) override;
    std::optional<std::size_t> standWhile(const MessageBox& box,
                                          const std::vector<std::string>& keys,
                                          const std::function<bool()>& over) override;
    void letEventsThrough() override;
    Box room(const Form& form) const override;
    void pointer(PointerShape shape) override;
    void beep() override;
    void giveFocus(Control& control) override;
    void setClipboardText(std::string_view text) override;
    void setClipboardPicture(Control& drawing) override;
    std::string pictureOf(Control& drawing, PictureFormat format) override;
    std::optional<std::string> askWhereToSave(const SaveQuestion& question) override;
    std::optional<std::string> askWhatToOpen(const OpenQuestion& question) override;
    std::string writeFile(std::string_view path, std::string_view bytes) override;
    std::string printImage(const std::vector<const Form*>& forms) override;
    std::string printSheet(const Panel& sheet) override;
    std::string printPages(const PageDocument& document, int first, int last) override;
    std::string pdfOfImage(const std::vector<const Form*>& forms) override;
    std::string pdfOfSheet(const Panel& sheet) override;
    std::string pdfOfPages(const PageDocument& document, int first, int last) override;
    Paper paper() const override;
    void showHelp(std::string_view fileName) override;
    void formLoaded(Form& form) override;
    void formShown(Form& form) override;
    void formHidden(Form& form) override;
    void formDestroyed(Form& form) override;
    void runModal(Form& form) override;
    void formMinimised(Form& form) override;
    void tellStarter(std::string_view sentence) override;

    /// The display has gone: the program ends in good order, and nothing is painted any more. The
    /// caller ends the process.
    void displayLost();

    // The interface for windows and widgets.

    /// What the next call for help is on.
    void meanByHelp(const Form& form, const Control* control) {
        if (topicOf_) helpOn_ = topicOf_(form, control);
    }

    /// The user's input. Posted input is handled as soon as the current Qt event has returned.
    Hand& hand();
    /// Handles posted input now, unless a handler is running.
    void runInputNow();
    /// How much moves beside what is measured. The desktop is asked for it at the start.
    Motion motion() const { return motion_; }
    void setMotion(Motion motion);

    /// Requests that all windows repaint their changes soon.
    void frameSoon();

    /// One factor for all windows, at the first screen's device pixel ratio.
    const Scale& scale() const { return scale_; }
    QSize rackSize() const;
    /// Makes the rack, and with it every window, as large as that; within what can be read and what
    /// fits the screen.
    void resizeRack(qreal width);
    /// The rack takes the whole screen, or its size of before.
    void turnWholeScreen();
    /// The screen that the rack stands on, or will stand on.
    const QScreen& rackScreen() const;
    /// The rack was moved or resized.
    void rackPlaced();
    const std::optional<RackPlace>& wantedPlace() const { return wantedPlace_; }
    /// The screen without task bars, in logical pixels.
    QRect availableRoom() const;
    /// The same without the space for the frame of the form's window.
    QRect roomFor(const Form& form) const;
    QPoint screenPoint(float leftTwips, float topTwips) const;
    float modelX(int px) const { return static_cast<float>(scale_.twips(px)); }
    float modelY(int px) const { return static_cast<float>(scale_.twips(px)); }
    /// True where a program may not place its windows (Wayland): a handle then starts the window
    /// system's own move.
    bool systemMovesWindows() const { return systemMoves_; }

    /// Converts a position on the screen to twips from the form's corner, by the form's position in
    /// the model.
    QPointF pointOnForm(const Form& form, QPointF global) const;

    /// True while focus rings are shown.
    bool keyboardUsed() const { return keyboard_->used(); }

    /// Called for a click on a form that waits for another window: raises that window and makes it
    /// flash.
    void recallOpenWindow();

    /// The view of a form, or null if it was never shown.
    FormView* viewOf(const Form& form) const;
    RackWindow* rackWindow() const { return rack_.get(); }

 protected:
    void ending() override;
    void startWork(std::function<void()> fn, std::function<void()> done) override;
    void finishWork() override { workers_.wait(); }
    void endComes() override { wakeTimer_.start(0); }
    /// The default printer, ready to print; null if there is none, and then `wrong` says why.
    virtual std::unique_ptr<QPrinter> readyPrinter(std::string& wrong) const;

 private:
    std::string pdfOfDrawing(Control& drawing) const;
    std::string printContent(const PageContent& content) const;
    static std::vector<const Form*> shownOf(const std::vector<const Form*>& forms);

    /// What the thread is doing.
    enum class Phase { Idle, Handling, Modal, Box };
    enum class BoxKeys { Ok, OkAndCancel };
    /// Sets the phase for a scope, and restores it on every way out.
    class PhaseScope {
     public:
        PhaseScope(QtDesktop& desktop, Phase phase) : desktop_(desktop), before_(desktop.phase_) {
            desktop.phase_ = phase;
        }
        ~PhaseScope() { desktop_.phase_ = before_; }
        PhaseScope(const PhaseScope&) = delete;
        PhaseScope& operator=(const PhaseScope&) = delete;

     private:
        QtDesktop& desktop_;
        Phase before_;
    };

    void speakSpanish();
    void rescale(qreal factor);
    void tellPlaced();
    void wake();
    void runQueue();
    void arm();
    void frameIfDue();
    void frame();
    bool anythingStale() const;
    void paintNow(const Form& form);
    void enableViews();
    void settleFocus();
    FormWindow& windowOf(Form& form);
    const QWidget* opener() const;
    bool spanish() const;
    /// The message for a page that the printer refused; takenBy() returns it for a page that the
    /// queue refused without Qt's notice, and an empty text for one that is on its way.
    std::string notTaken() const;
    std::string takenBy(const QPrinter& printer) const;
    BoxAnswer standBox(const MessageBox& box, BoxKeys keys);
    std::optional<std::size_t> standCallBox(const MessageBox& box,
                                            const std::vector<std::string>& keys,
                                            const std::function<bool()>& over);
    std::optional<std::string> standSaveDialog(const SaveQuestion& question);
    std::optional<std::string> standOpenDialog(const OpenQuestion& question);
    template <class Stand>
    std::optional<std::string> standDialog(Stand stand);

    std::unique_ptr<QApplication> own_;
    Hand hand_{*this};
    Scale scale_{0.1, 1};
    QElapsedTimer clock_;
    QTimer wakeTimer_;
    QTimer placedTimer_;
    QTranslator ownWords_;  ///< what Qt itself says, in the user's language
    Motion motion_ = Motion::Usual;
    int caretMs_ = 0;  ///< how long a caret takes to blink where motion is usual
    std::optional<RackPlace> wantedPlace_;
    Phase phase_ = Phase::Idle;
    std::unique_ptr<RackWindow> rack_;
    std::map<const Form*, std::unique_ptr<FormWindow>> windows_;
    const HelpBook* book_ = nullptr;
    HelpTopic topicOf_;
    std::string helpOn_;
    std::unique_ptr<HelpWindow> help_;
    std::vector<Form*> modals_;
    FocusKeeper focus_;
    std::unique_ptr<KeyboardWatch> keyboard_;
    Time lastFrame_{-1000000};
    bool frameWanted_ = false;
    bool hourglass_ = false;
    bool systemMoves_ = false;
    bool displayLost_ = false;
    int languageId_ = 0x0409;
    std::mt19937 generator_;
    QString saveFolder_;  ///< where a file was written or read last
    std::filesystem::path folder_;
    WorkerThreads workers_;
};

}  // namespace display::qt
