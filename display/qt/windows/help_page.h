// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QTextBrowser>
#include <QWidget>
#include <functional>

#include "display/help_book.h"

namespace display::qt {

/// A page of a book, set in the rack's colours: a column of text whose pictures are never wider
/// than it is.
class HelpPage final : public QTextBrowser {
 public:
    HelpPage(const HelpBook& book, qreal textPixels, QWidget* parent);

    /// Shows a page; false when the book has none of that name.
    bool showPage(const QString& name, Language language);
    /// Shows the same page in that language, about where one reads.
    void speak(Language language);
    /// Letters and pictures larger or smaller by that many steps of a tenth.
    void zoom(int steps);
    /// Marks each place where the words stand and goes to the next one from where the last one was;
    /// behind the last comes the first. Returns how many there are, and which of them is meant.
    struct Found {
        int count = 0;
        int at = 0;  ///< from 1
    };
    Found find(const QString& words, bool backwards);
    void forgetFound();

    /// A link to another page was followed.
    std::function<void(const QString& page)> onLink;

 protected:
    void doSetSource(const QUrl& url, QTextDocument::ResourceType type) override;
    QVariant loadResource(int type, const QUrl& name) override;
    void resizeEvent(QResizeEvent* event) override;

 private:
    void setPage();
    void setPageInSight();
    QString style() const;
    int column() const;
    qreal pixels() const;

    const HelpBook& book_;
    qreal textPixels_;
    int steps_ = 0;
    QString page_;
    Language language_ = Language::English;
    int shownColumn_ = 0;
    QString foundWords_;
    int foundAt_ = -1;
};

}  // namespace display::qt
