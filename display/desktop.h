// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <exception>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "display/event_queue.h"

namespace display {

class Control;
class Form;
class PageDocument;
class Panel;
struct Box;
struct Paper;
struct SaveQuestion;

enum class BoxIcon { None, Information, Critical };

/// A message box with one key. UTF-8; lines are divided by \n.
struct MessageBox {
    std::string title;
    std::string text;
    BoxIcon icon = BoxIcon::None;
};

/// The key by which a question was answered.
enum class BoxAnswer { Ok, Cancel };

enum class PointerShape { Arrow, Hourglass };

/// Pixels or lines.
enum class PictureFormat { Png, Svg };

struct Date {
    int year = 2000;
    int month = 1;
    int day = 1;
    int weekday = 0;  ///< 0 is Sunday
    int hour = 0;
    int minute = 0;
    int second = 0;
};

/// Leaves whatever handler runs when the program ends: nothing of it runs on. Caught by the
/// desktop alone.
class ProgramEnded : public std::exception {
 public:
    const char* what() const noexcept override { return "the program has ended"; }
};

/// The only door from the panels to the outside of their windows. The Qt desktop is the real
/// thing, the headless one runs the same program without a screen.
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
    /// Month and weekday words (0 is January, Sunday) in the user's language.
    virtual std::string monthName(int month) const = 0;
    virtual std::string shortMonthName(int month) const = 0;
    virtual std::string weekdayName(int weekday) const = 0;

    /// The user's language identifier: the primary language in the low ten bits (10 Spanish, 22
    /// Portuguese, 9 English).
    virtual int userLanguageId() const = 0;

    /// Uniform from 0 up to but not including 1.
    virtual double random() = 0;

    /// Shows the box and returns when the user has answered it.
    virtual void messageBox(const MessageBox& box) = 0;
    /// The same with a second key; closing the box is "Cancel".
    virtual BoxAnswer ask(const MessageBox& box) = 0;

    /// One pass of waiting events inside a handler; what comes through, the queue decides.
    virtual void letEventsThrough() = 0;

    /// The part of the screen that the form's window may stand in with its frame, in twips as forms
    /// are placed; empty where the system alone places windows.
    virtual Box room(const Form& form) const = 0;

    virtual void pointer(PointerShape shape) = 0;
    virtual void beep() = 0;
    /// The keyboard goes to the control of a shown form.
    virtual void giveFocus(Control& control) = 0;
    virtual void setClipboardText(std::string_view text) = 0;
    /// The picture of a drawing of a loaded form.
    virtual void setClipboardPicture(Control& drawing) = 0;
    /// The same as the bytes of a file.
    virtual std::string pictureOf(Control& drawing, PictureFormat format) = 0;

    /// Asks where a file is to be written. The path (UTF-8) ends with the ending of one of the
    /// kinds; that a file there is replaced, the user has agreed. None when nothing is to be
    /// written.
    virtual std::optional<std::string> askWhereToSave(const SaveQuestion& question) = 0;
    /// Puts the bytes in the place of a file, whole or not at all. Answers what went wrong as a
    /// sentence, empty when they are written.
    virtual std::string writeFile(std::string_view path, std::string_view bytes) = 0;

    /// Prints the image of these windows, one under the other as they stand, on one page of the
    /// desktop's printer. Answers what went wrong, empty when it was printed.
    virtual std::string printImage(const std::vector<const Form*>& forms) = 0;

    /// Prints a panel with what stands on it, whether its form is shown or hidden, on one page of
    /// the desktop's printer. Answers what went wrong, empty when it was printed.
    virtual std::string printSheet(const Panel& sheet) = 0;

    /// Prints these pages of a document, counted from 1, on the desktop's printer. Answers what
    /// went wrong, empty when they were printed.
    virtual std::string printPages(const PageDocument& document, int first, int last) = 0;

    /// What printImage(), printSheet() and printPages() put on paper, as the bytes of a PDF.
    virtual std::string pdfOfImage(const std::vector<const Form*>& forms) = 0;
    virtual std::string pdfOfSheet(const Panel& sheet) = 0;
    virtual std::string pdfOfPages(const PageDocument& document, int first, int last) = 0;
    /// The sheet that the desktop's printer takes; the system's usual one where there is none.
    virtual Paper paper() const = 0;

    /// The help text of the program, in a window of its own.
    virtual void showHelp(std::string_view fileName) = 0;
    /// The file that the help key shows.
    std::string helpFile;

    /// Ends the program at once. Never returns to the handler.
    [[noreturn]] void end();
    bool ended() const { return ended_; }

    // What forms tell the desktop.
    virtual void formLoaded(Form&) {}
    /// The object goes away; nothing of it may be called any more.
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
    /// Called once when the program ends, before the handlers unwind.
    virtual void ending() {}

 private:
    friend class Form;
    EventQueue queue_;
    std::vector<Form*> forms_;
    bool ended_ = false;
};

}  // namespace display
