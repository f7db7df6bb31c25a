// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QString>
#include <QToolButton>
#include <QWidget>
#include <vector>

#include "display/help_book.h"
#include "display/qt/windows/help_page.h"

namespace display::qt {

/// A book in a window of its own: contents beside the page, the pages that were read before and
/// after, words that are looked for, and the other language. Escape closes it.
class HelpWindow final : public QWidget {
 public:
    /// Text of that height in logical pixels; a window that fits the room.
    HelpWindow(const HelpBook& book, qreal textPixels, const QRect& room);

    /// Shows that page; false when the book has none of that name.
    bool open(const QString& page, Language language);

    /// The name of the page that is shown.
    const QString& page() const { return pages_[at_].name; }
    Language language() const { return pages_[at_].language; }

 protected:
    void keyPressEvent(QKeyEvent* event) override;

 private:
    struct Visit {
        QString name;
        Language language = Language::English;
        int scrolled = 0;
    };
    void lay(qreal textPixels, const QRect& room);
    void bindKeys();
    void follow(const QString& page);
    void go(std::size_t visit);
    void step(int by);
    void turnPage(int by);
    void turnLanguage();
    void search(bool backwards);
    bool searchOtherPages(const QString& words, bool backwards);
    void showState();
    void fillContents();

    const HelpBook& book_;
    QToolButton* back_;
    QToolButton* forward_;
    QToolButton* other_;
    QLineEdit* words_;
    QLabel* found_;
    QListWidget* contents_;
    HelpPage* text_;
    std::vector<Visit> pages_;
    std::size_t at_ = 0;
    bool filling_ = false;
};

}  // namespace display::qt
