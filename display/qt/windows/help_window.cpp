// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/windows/help_window.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QString>
#include <QTextDocument>
#include <QVBoxLayout>
#include <algorithm>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "display/qt/painting/fonts.h"
#include "display/qt/painting/palette.h"
#include "display/qt/painting/scale.h"
#include "display/qt/widgets/control_widget.h"
#include "display/qt/windows/qt_desktop.h"

namespace display::qt {

namespace {

constexpr Words kHelpTitle{"Manual de HMonitor", "HMonitor manual"};
constexpr Words kHelpBack{"Página anterior (Alt Izquierda)", "Page before (Alt Left)"};
constexpr Words kHelpForward{"Página siguiente (Alt Derecha)", "Page after (Alt Right)"};
constexpr Words kHelpOther{"Leer en inglés", "Read in Spanish"};
constexpr Words kHelpOtherWord{"English", "Español"};
constexpr Words kHelpFind{"Buscar en la página (Ctrl F)", "Find in the page (Ctrl F)"};
constexpr Words kHelpFound{"Resultado de la búsqueda", "Result of the search"};
constexpr Words kHelpNone{"no está", "not found"};
constexpr Words kHelpContents{"Contenido", "Contents"};
constexpr Words kHelpScroll{"Desplazar la página", "Scroll the page"};
constexpr Words kHelpScrollContents{"Desplazar el contenido", "Scroll the contents"};
constexpr Words kHelpPage{"Página del manual", "Page of the manual"};

/// The ground of the line of the contents that is shown, under white letters.
constexpr QRgb kHelpChosen = 0xff2a72a6;
/// The size of the text, in twips of the rack.
constexpr float kHelpText = 150;

QString wordsOf(Language language, const Words& words) {
    return qText(wordsIn(language, words));
}

QString helpStyle() {
    const auto named = [](QRgb colour) { return QColor(colour).name(); };
    return QStringLiteral(
               "QWidget { background: %1; } QListWidget, QTextBrowser { background: %2; border: "
               "1px solid %3; } QListWidget { selection-background-color: %4; selection-color: "
               "#ffffff; } ")
               .arg(named(kFaceplateBottom), named(kWellTop), named(kFaceplateEdge),
                    named(kHelpChosen)) +
           QStringLiteral(
               "QToolButton { background: %1; color: %2; border: 1px solid %3; padding: 4px 10px; "
               "border-radius: 3px; } QToolButton:disabled { color: %4; } QLineEdit { background: "
               "%5; color: %6; border: 1px solid %3; padding: 4px 6px; } ")
               .arg(named(kKeyTop), named(kKeyText), named(kFaceplateEdge), named(kKeyTextOff),
                    named(kField), qColour(kCyan).name()) +
           QStringLiteral(
               "QListWidget:focus, QTextBrowser:focus, QLineEdit:focus, QToolButton:focus { "
               "border: "
               "1px solid %1; }")
               .arg(named(kFocus));
}

}  // namespace

HelpWindow::HelpWindow(const HelpBook& book, qreal textPixels, const QRect& room)
    : book_(book),
      back_(new QToolButton(this)),
      forward_(new QToolButton(this)),
      other_(new QToolButton(this)),
      words_(new QLineEdit(this)),
      found_(new QLabel(this)),
      contents_(new QListWidget(this)),
      text_(new HelpPage(book, textPixels, this)) {
    setObjectName("HelpWindow");
    pages_.emplace_back();
    lay(textPixels, room);
    bindKeys();
    text_->onLink = [this](const QString& page) { follow(page); };
}

void HelpWindow::lay(qreal textPixels, const QRect& room) {
    setStyleSheet(helpStyle());
    setFont(Fonts::get().font(textPixels * 0.9, Weight::Normal));
    back_->setText(QStringLiteral("◀"));
    forward_->setText(QStringLiteral("▶"));
    words_->setClearButtonEnabled(true);
    words_->setMaximumWidth(qRound(textPixels * 18));
    found_->setMinimumWidth(qRound(textPixels * 5));

    auto* bar = new QHBoxLayout;
    for (QToolButton* key : {back_, forward_}) bar->addWidget(key);
    bar->addStretch();
    bar->addWidget(found_);
    bar->addWidget(words_);
    bar->addWidget(other_);
    for (QToolButton* key : {back_, forward_, other_}) key->setFocusPolicy(Qt::StrongFocus);
    contents_->setSpacing(2);

    auto* halves = new QSplitter(this);
    halves->addWidget(contents_);
    halves->addWidget(text_);
    halves->setChildrenCollapsible(false);
    halves->setStretchFactor(1, 1);
    auto* all = new QVBoxLayout(this);
    all->addLayout(bar);
    all->addWidget(halves, 1);

    // The frame that the window manager adds has to fit, too.
    const QSize most = room.size() * 0.92;
    const QSize wanted(qRound(textPixels * 68), qRound(textPixels * 48));
    resize(wanted.boundedTo(most));
    move(room.center() - rect().center());
    const int beside = qRound(textPixels * 17);
    halves->setSizes({beside, width() - beside});
    QWidget* const order[] = {text_, contents_, back_, forward_, words_, other_};
    for (std::size_t i = 1; i < std::size(order); ++i) setTabOrder(order[i - 1], order[i]);
}

void HelpWindow::bindKeys() {
    const auto bind = [this](const QKeySequence& keys, auto act) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, act);
    };
    bind(QKeySequence("Alt+Left"), [this] { step(-1); });
    bind(QKeySequence("Alt+Right"), [this] { step(1); });
    bind(QKeySequence("Ctrl+PgUp"), [this] { turnPage(-1); });
    bind(QKeySequence("Ctrl+PgDown"), [this] { turnPage(1); });
    bind(QKeySequence("F6"), [this] {
        // Tab goes from link to link first.
        QWidget* other = text_->hasFocus() ? static_cast<QWidget*>(contents_) : text_;
        other->setFocus(Qt::ShortcutFocusReason);
    });
    bind(QKeySequence("Ctrl+F"), [this] {
        words_->setFocus(Qt::ShortcutFocusReason);
        words_->selectAll();
    });
    bind(QKeySequence("F3"), [this] { search(false); });
    bind(QKeySequence("Shift+F3"), [this] { search(true); });
    bind(QKeySequence("Ctrl++"), [this] { text_->zoom(1); });
    bind(QKeySequence("Ctrl+="), [this] { text_->zoom(1); });
    bind(QKeySequence("Ctrl+-"), [this] { text_->zoom(-1); });
    bind(QKeySequence("Ctrl+0"), [this] { text_->zoom(0); });
    connect(back_, &QToolButton::clicked, this, [this] { step(-1); });
    connect(forward_, &QToolButton::clicked, this, [this] { step(1); });
    connect(other_, &QToolButton::clicked, this, [this] { turnLanguage(); });
    connect(words_, &QLineEdit::returnPressed, this, [this] { search(false); });
    connect(words_, &QLineEdit::textChanged, this, [this](const QString& words) {
        found_->clear();
        if (words.isEmpty()) text_->forgetFound();
    });
    connect(contents_, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row >= 0 && !filling_) follow(contents_->item(row)->data(Qt::UserRole).toString());
    });
}

bool HelpWindow::open(const QString& page, Language language) {
    if (book_.page(page.toStdString(), language).empty()) return false;
    const bool first = this->page().isEmpty();
    if (first) {
        pages_[0] = {page, language, 0};
        go(0);
    } else {
        // The language that was chosen since stays.
        follow(page);
    }
    if (isMinimized()) {
        showNormal();
    } else {
        show();
    }
    raise();
    activateWindow();
    text_->setFocus(Qt::OtherFocusReason);
    return true;
}

void HelpWindow::follow(const QString& page) {
    if (page == this->page()) return;
    if (book_.page(page.toStdString(), language()).empty()) return;
    pages_[at_].scrolled = text_->verticalScrollBar()->value();
    pages_.resize(at_ + 1);
    pages_.push_back({page, language(), 0});
    go(pages_.size() - 1);
}

void HelpWindow::go(std::size_t visit) {
    at_ = visit;
    text_->showPage(page(), language());
    text_->verticalScrollBar()->setValue(pages_[at_].scrolled);
    found_->clear();
    showState();
}

void HelpWindow::step(int by) {
    if (by < 0 ? at_ == 0 : at_ + 1 >= pages_.size()) return;
    pages_[at_].scrolled = text_->verticalScrollBar()->value();
    go(by < 0 ? at_ - 1 : at_ + 1);
}

void HelpWindow::turnPage(int by) {
    const int row = contents_->currentRow() + by;
    if (row >= 0 && row < contents_->count()) contents_->setCurrentRow(row);
}

void HelpWindow::turnLanguage() {
    const Language wanted = language() == Language::Spanish ? Language::English : Language::Spanish;
    for (Visit& visit : pages_) visit.language = wanted;
    text_->speak(wanted);
    found_->clear();
    showState();
}

void HelpWindow::search(bool backwards) {
    const QString words = words_->text();
    if (words.isEmpty()) {
        words_->setFocus(Qt::ShortcutFocusReason);
        return;
    }
    HelpPage::Found found = text_->find(words, backwards);
    if (found.count == 0 && searchOtherPages(words, backwards)) {
        found = text_->find(words, backwards);
    }
    found_->setText(found.count == 0 ? wordsOf(language(), kHelpNone)
                                     : QStringLiteral("%1/%2").arg(found.at).arg(found.count));
}

/// Words that this page does not have lead to the next page that has them.
bool HelpWindow::searchOtherPages(const QString& words, bool backwards) {
    const std::vector<HelpEntry> all = book_.contents(language());
    const auto here = std::ranges::find(all, page().toStdString(), &HelpEntry::page);
    if (here == all.end()) return false;
    const std::size_t from = static_cast<std::size_t>(here - all.begin());
    for (std::size_t step = 1; step < all.size(); ++step) {
        const HelpEntry& entry =
            all[(backwards ? from + all.size() - step : from + step) % all.size()];
        QTextDocument other;
        other.setHtml(qText(book_.page(entry.page, language())));
        if (other.find(words).isNull()) continue;
        follow(qText(entry.page));
        return true;
    }
    return false;
}

void HelpWindow::fillContents() {
    filling_ = true;
    contents_->clear();
    for (const HelpEntry& entry : book_.contents(language())) {
        const QString before = entry.level > 0 ? QStringLiteral("    ") : QString();
        auto* item = new QListWidgetItem(before + qText(entry.title), contents_);
        item->setData(Qt::UserRole, qText(entry.page));
        item->setData(Qt::AccessibleTextRole, qText(entry.title));
        QFont font = contents_->font();
        font.setBold(entry.level == 0);
        item->setFont(font);
        if (entry.page == page().toStdString()) contents_->setCurrentItem(item);
    }
    filling_ = false;
}

void HelpWindow::showState() {
    const Language now = language();
    fillContents();
    setWindowTitle(wordsOf(now, kHelpTitle));
    back_->setEnabled(at_ > 0);
    forward_->setEnabled(at_ + 1 < pages_.size());
    other_->setText(wordsOf(now, kHelpOtherWord));
    words_->setPlaceholderText(wordsOf(now, kHelpFind));
    const auto name = [now](QWidget* widget, const Words& words) {
        widget->setAccessibleName(wordsOf(now, words));
        widget->setToolTip(wordsOf(now, words));
    };
    name(back_, kHelpBack);
    name(forward_, kHelpForward);
    name(other_, kHelpOther);
    name(words_, kHelpFind);
    for (QScrollBar* bar : {text_->verticalScrollBar(), text_->horizontalScrollBar()}) {
        bar->setAccessibleName(wordsOf(now, kHelpScroll));
    }
    for (QScrollBar* bar : {contents_->verticalScrollBar(), contents_->horizontalScrollBar()}) {
        bar->setAccessibleName(wordsOf(now, kHelpScrollContents));
    }
    contents_->setAccessibleName(wordsOf(now, kHelpContents));
    text_->setAccessibleName(wordsOf(now, kHelpPage));
    found_->setAccessibleName(wordsOf(now, kHelpFound));
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        close();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void QtDesktop::showHelp(std::string_view fileName) {
    if (fileName.empty()) return;
    // The panels' language: Portuguese users have Spanish panels.
    constexpr int kSpanishId = 10;
    constexpr int kPortugueseId = 22;
    const int primary = languageId_ & 0x3ff;
    const Language language =
        primary == kSpanishId || primary == kPortugueseId ? Language::Spanish : Language::English;
    if (book_) {
        if (!help_) {
            help_ = std::make_unique<HelpWindow>(*book_, scale_.px(kHelpText), availableRoom());
        }
        const std::string page = book_->pageOf(std::exchange(helpOn_, {}));
        if (help_->open(qText(page.empty() ? fileName : page), language)) return;
        if (help_->open(qText(fileName), language)) return;
    }
    messageBox({"HMonitor", "File not found: " + std::string(fileName), BoxIcon::Information});
}

}  // namespace display::qt
