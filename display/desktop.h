// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <exception>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "display/event_queue.h"
#include "display/wall_time.h"

namespace display {

class Control;
class Form;
class PageDocument;
class Panel;
struct Box;
struct OpenQuestion;
struct Paper;
struct SaveQuestion;

enum class BoxIcon { None, Information, Critical };

/// A message box with one key. UTF-8; lines are divided by \n.
struct MessageBox {
    std::string title;
    std::string text;
    BoxIcon icon = BoxIcon::None;
};

/// The button that answered a question.
enum class BoxAnswer { Ok, Cancel };

enum class PointerShape { Arrow, Hourglass };

/// A raster image, a vector drawing, or one on a page of the usual paper.
enum class PictureFormat { Png, Svg, Pdf };

struct Date {
    int year = 2000;
    int month = 1;
    int day = 1;
    int weekday = 0;  ///< 0 is Sunday
    int hour = 0;
    int minute = 0;
    int second = 0;
};

/// Thrown when the program ends, so that the running handler is left at once. Only the desktop
/// catches it.
class ProgramEnded : public std::exception {
 public:
    const char* what() const noexcept override { return "the program has ended"; }
};

/// All that the panels know of the world outside their windows. The Qt desktop shows the program on
/// a screen; the headless desktop runs the same program in tests.
class Desktop {
 public:
    Desktop();
    virtual ~Desktop();
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

    EventQueue& queue() { return queue_; }

    /// Time since the start.
    virtual Time now() const = 0;
    /// Local date and time of day.
    virtual Date today() const = 0;
    /// The same clock in UTC, with its zone.
    virtual WallTime wallTime() const = 0;
    /// Month and weekday names (0 is January, 0 is Sunday) in the user's language.
    virtual std::string monthName(int month) const = 0;
    virtual std::string shortMonthName(int month) const = 0;
    virtual std::string weekdayName(int weekday) const = 0;

    /// The user's language identifier: the primary language in the low ten bits (10 Spanish, 22
    /// Portuguese, 9 English).
    virtual int userLanguageId() const = 0;

    /// A random number, uniform from 0 up to but not including 1.
    virtual double random() = 0;

    /// Shows the box and returns when the user has closed it.
    virtual void messageBox(const MessageBox& box) = 0;
    /// The same with a second button, "Cancel", which closing the box means too.
    virtual BoxAnswer ask(const MessageBox& box) = 0;

    /// Handles the waiting events once, inside a handler. The queue decides which events it lets
    /// through.
    virtual void letEventsThrough() = 0;

    /// The part of the screen that is free for the form's window with its frame, in twips; empty
    /// where the window system places windows by itself.
    virtual Box room(const Form& form) const = 0;

    virtual void pointer(PointerShape shape) = 0;
    virtual void beep() = 0;
    /// Gives the keyboard focus to the control of a shown form.
    virtual void giveFocus(Control& control) = 0;
    virtual void setClipboardText(std::string_view text) = 0;
    /// Copies the picture of a drawing of a loaded form.
    virtual void setClipboardPicture(Control& drawing) = 0;
    /// The same picture as the bytes of a file.
    virtual std::string pictureOf(Control& drawing, PictureFormat format) = 0;

    /// Asks where to write a file. The path (UTF-8) ends with the ending of one of the kinds; if a
    /// file stands there, the user has agreed to replace it. None when the user cancelled.
    virtual std::optional<std::string> askWhereToSave(const SaveQuestion& question) = 0;
    /// Asks which file to read. None when the user cancelled.
    virtual std::optional<std::string> askWhatToOpen(const OpenQuestion& question) = 0;
    /// Replaces the contents of a file, completely or not at all. Returns a sentence that says what
    /// went wrong, empty on success. May be called inside work().
    virtual std::string writeFile(std::string_view path, std::string_view bytes) = 0;

    /// Prints the image of these windows, one below the other, on one page of the default printer.
    /// Returns what went wrong, empty on success.
    virtual std::string printImage(const std::vector<const Form*>& forms) = 0;

    /// Prints a panel with its contents, whether its form is shown or hidden, on one page of the
    /// default printer. Returns what went wrong, empty on success.
    virtual std::string printSheet(const Panel& sheet) = 0;

    /// Prints these pages of a document, counted from 1, on the default printer. Returns what went
    /// wrong, empty on success.
    virtual std::string printPages(const PageDocument& document, int first, int last) = 0;

    /// What printImage(), printSheet() and printPages() put on paper, as the bytes of a PDF.
    virtual std::string pdfOfImage(const std::vector<const Form*>& forms) = 0;
    virtual std::string pdfOfSheet(const Panel& sheet) = 0;
    virtual std::string pdfOfPages(const PageDocument& document, int first, int last) = 0;
    /// The paper of the default printer; without a printer, the usual paper of the user's country.
    virtual Paper paper() const = 0;

    /// The folder that the program works in, with its settings, its results and its help.
    virtual std::filesystem::path folder() const = 0;

    /// Runs `fn` beside the program, on a thread of its own, and `done` with what it returned on
    /// the program's thread as soon as events come through: while a modal form, a box or a run
    /// stands too. `fn` uses nothing that the program's thread touches meanwhile, and of the
    /// desktop writeFile() alone; what it throws is thrown where `done` would have run. When the
    /// program ends, end() waits for what still works, and its `done` never runs.
    template <class Fn, class Done>
    void work(Fn fn, Done done);

    /// The help text of the program, in a window of its own.
    virtual void showHelp(std::string_view fileName) = 0;
    /// The file that the help key shows.
    std::string helpFile;

    /// Ends the program at once. Never returns to the handler.
    [[noreturn]] void end();
    bool ended() const { return ended_; }

    /// Somebody who stands at no key wants the program to end: a signal, the end of the user's
    /// session. A run that holds the thread hears it as its stop; when no handler stands any more
    /// but for boxes and modal forms, `onEndWanted` is called.
    void wantEnd();
    bool endWanted() const { return endWanted_; }
    /// Ends the program in good order without asking anybody anything. Where it is not set, the
    /// program ends at once.
    std::function<void()> onEndWanted;
    /// The user's session may be about to end: what would be lost is stored.
    std::function<void()> onSaveWanted;

    /// A sentence to whoever started the program, where no user may be there to answer a box.
    virtual void tellStarter(std::string_view sentence) = 0;

    // What forms tell the desktop.
    virtual void formLoaded(Form&) {}
    /// The form is being destroyed: none of its members may be called any more.
    virtual void formDestroyed(Form&) {}
    virtual void formShown(Form& form) = 0;
    virtual void formHidden(Form& form) = 0;
    /// Shows the form, lets the user act on it alone, and returns when it is hidden.
    virtual void runModal(Form& form) = 0;
    virtual void formMinimised(Form& form) = 0;

    const std::vector<Form*>& forms() const { return forms_; }
    /// The form of that name, or null.
    Form* find(std::string_view formName) const;

 protected:
    /// Called once when the program ends, before ProgramEnded is thrown.
    virtual void ending() {}
    /// Runs `fn`, which throws nothing, and posts `done` to the queue.
    virtual void startWork(std::function<void()> fn, std::function<void()> done) = 0;
    /// Returns when nothing works any more. What was worked out needs not be posted.
    virtual void finishWork() {}
    /// An end is wanted: the loop wakes up for it.
    virtual void endComes() {}
    /// For the desktop's loops: ends the program if that is wanted.
    void endIfWanted();

 private:
    friend class Form;
    EventQueue queue_;
    std::vector<Form*> forms_;
    bool ended_ = false;
    bool endWanted_ = false;
};

template <class Fn, class Done>
void Desktop::work(Fn fn, Done done) {
    using Result = std::invoke_result_t<Fn&>;
    struct Work {
        Fn fn;
        Done done;
        std::optional<Result> result;
        std::exception_ptr thrown;
    };
    const auto work = std::make_shared<Work>(Work{std::move(fn), std::move(done), {}, {}});
    startWork(
        [work] {
            try {
                work->result.emplace(work->fn());
            } catch (...) {
                work->thrown = std::current_exception();
            }
        },
        [work] {
            if (work->thrown) std::rethrow_exception(work->thrown);
            work->done(*std::move(work->result));
        });
}

}  // namespace display
