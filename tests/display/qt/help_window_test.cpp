// SPDX-License-Identifier: GPL-3.0-or-later
// The manual's window: contents, links, history, search, languages and keys; and each page of the
// manual as it is shown.
#include "display/qt/windows/help_window.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QBuffer>
#include <QImage>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextTable>
#include <map>

#include "display/qt/painting/palette.h"
#include "manual/book.h"
#include "manual/manual_folder.h"
#include "tests/display/qt/qt_bench.h"

namespace display::qt {

constexpr qreal kLetters = 15;
constexpr QRect kLaptop(0, 0, 1366, 728);

/// A picture that is wider than any column.
std::string widePicture() {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImage(3000, 100, QImage::Format_RGB32).save(&buffer, "PNG");
    return bytes.toStdString();
}

class TestBook final : public HelpBook {
 public:
    std::vector<HelpEntry> contents(Language language) const override {
        const bool spanish = language == Language::Spanish;
        return {{"one", spanish ? "Uno" : "One", 0},
                {"two", spanish ? "Dos" : "Two", 1},
                {"three", spanish ? "Tres" : "Three", 1}};
    }
    std::string page(std::string_view name, Language language) const override {
        const std::map<std::string_view, std::string> pages = {
            {"one", "<h1>One</h1><p>Here is a <a href=\"two.md\">link</a>.</p>"},
            {"two", "<h1>Two</h1><p>pilot, pilot</p><p><img src=\"wide.png\"></p>"},
            {"three", "<h1>Three</h1><p>A <b>pilot</b> and a carrier.</p>"},
            {"long", longPage()}};
        const auto found = pages.find(name);
        if (found == pages.end()) return {};
        return language == Language::Spanish ? "<p>En español</p>" + found->second : found->second;
    }
    std::string pageOf(std::string_view topic) const override {
        return topic == "Sample" ? "two" : "";
    }
    std::string picture(std::string_view) const override { return widePicture(); }

 private:
    static std::string longPage() {
        std::string page;
        for (int i = 0; i < 300; ++i) page += "<p>A line of a page that is read slowly.</p>";
        return page;
    }
};

class HelpWindowTest : public QtBench {
 protected:
    HelpWindowTest() { window.open("one", Language::English); }

    void press(Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : &window, key,
                        with);
    }
    QTextBrowser& text() { return *window.findChild<QTextBrowser*>(); }
    QListWidget& contents() { return *window.findChild<QListWidget*>(); }
    QLineEdit& words() { return *window.findChild<QLineEdit*>(); }
    bool active() {
        return until([this] { return QApplication::activeWindow() == &window; });
    }

    TestBook book;
    HelpWindow window{book, kLetters, kLaptop};
};

TEST_F(HelpWindowTest, ShowsThePageBesideItsContents) {
    EXPECT_EQ(window.page(), "one");
    EXPECT_TRUE(text().toPlainText().contains("Here is a link"));
    ASSERT_EQ(contents().count(), 3);
    EXPECT_EQ(contents().currentRow(), 0);
    EXPECT_EQ(window.windowTitle(), "HMonitor manual");
    contents().setCurrentRow(2);
    EXPECT_EQ(window.page(), "three");
    EXPECT_TRUE(text().toPlainText().contains("carrier"));
}

TEST_F(HelpWindowTest, ComesBackFromTheTaskBarWhenAPageIsAskedFor) {
    window.showMinimized();
    ASSERT_TRUE(window.isMinimized());
    EXPECT_TRUE(window.open("one", Language::English));
    EXPECT_FALSE(window.isMinimized());
}

TEST_F(HelpWindowTest, APageThatIsNotThereChangesNothing) {
    EXPECT_FALSE(window.open("none", Language::English));
    EXPECT_EQ(window.page(), "one");
}

TEST_F(HelpWindowTest, ALinkIsFollowedAndTheKeysGoBackAndForward) {
    ASSERT_TRUE(active());
    text().setSource(QUrl("two.md"));
    EXPECT_EQ(window.page(), "two");
    press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(window.page(), "one");
    press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(window.page(), "one") << "there is none before the first";
    press(Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(window.page(), "two");
    press(Qt::Key_Left, Qt::AltModifier);
    contents().setCurrentRow(2);
    press(Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(window.page(), "three") << "another way forgets the pages behind it";
}

TEST_F(HelpWindowTest, PagesAreTurnedByKeysAndTheContentsAreAKeyAway) {
    ASSERT_TRUE(active());
    press(Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(window.page(), "one") << "there is none before the first";
    press(Qt::Key_PageDown, Qt::ControlModifier);
    press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(window.page(), "three");
    press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(window.page(), "three");
    press(Qt::Key_F6);
    EXPECT_TRUE(contents().hasFocus());
    press(Qt::Key_Up);
    EXPECT_EQ(window.page(), "two");
    press(Qt::Key_F6);
    EXPECT_TRUE(text().hasFocus());
}

TEST_F(HelpWindowTest, WordsAreFoundOnThePageAndThenOnOthers) {
    ASSERT_TRUE(active());
    press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(words().hasFocus());
    QTest::keyClicks(&words(), "pilot");
    press(Qt::Key_Return);
    EXPECT_EQ(window.page(), "two") << "the next page that has them";
    const auto* found = window.findChild<QLabel*>();
    EXPECT_EQ(found->text(), "1/2");
    press(Qt::Key_F3);
    EXPECT_EQ(found->text(), "2/2");
    press(Qt::Key_F3);
    EXPECT_EQ(found->text(), "1/2");
    press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(found->text(), "2/2");
    EXPECT_EQ(text().textCursor().selectedText(), "pilot");
    words().setText("nowhere");
    press(Qt::Key_F3);
    EXPECT_EQ(found->text(), "not found");
    EXPECT_EQ(window.page(), "two");
}

TEST_F(HelpWindowTest, TheOtherLanguageIsAKeyAway) {
    window.open("two", Language::English);
    for (QToolButton* key : window.findChildren<QToolButton*>()) {
        if (key->text() == "Español") key->click();
    }
    EXPECT_EQ(window.language(), Language::Spanish);
    EXPECT_EQ(window.page(), "two");
    EXPECT_TRUE(text().toPlainText().startsWith("En español"));
    EXPECT_EQ(contents().item(0)->text(), "Uno");
    EXPECT_EQ(window.windowTitle(), "Manual de HMonitor");
}

TEST_F(HelpWindowTest, EscapeClosesFromWhereverTheKeyboardIs) {
    for (QWidget* from : std::initializer_list<QWidget*>{&text(), &contents(), &words()}) {
        window.open("one", Language::English);
        ASSERT_TRUE(active());
        from->setFocus();
        press(Qt::Key_Escape);
        EXPECT_FALSE(window.isVisible()) << from->metaObject()->className();
    }
}

TEST_F(HelpWindowTest, NothingThatTakesTheKeyboardHasNoName) {
    for (const Language language : {Language::Spanish, Language::English}) {
        HelpWindow other(book, kLetters, kLaptop);
        other.open("one", language);
        int named = 0;
        for (const QWidget* widget : other.findChildren<QWidget*>()) {
            if (widget->focusPolicy() == Qt::NoFocus || !widget->isVisible()) continue;
            if (widget->objectName().startsWith("qt_")) continue;
            ++named;
            EXPECT_FALSE(widget->accessibleName().isEmpty()) << widget->metaObject()->className();
        }
        EXPECT_GE(named, 4);
    }
}

TEST_F(HelpWindowTest, IsNeverLargerThanTheScreenNorAPictureThanItsColumn) {
    EXPECT_LT(window.width(), kLaptop.width());
    EXPECT_LT(window.height(), kLaptop.height());
    EXPECT_TRUE(kLaptop.contains(window.geometry()));
    HelpWindow small(book, kLetters, QRect(0, 0, 640, 480));
    small.open("two", Language::English);
    EXPECT_LE(small.width(), 640);
    EXPECT_LE(small.height(), 480);
    const auto* page = small.findChild<QTextBrowser*>();
    EXPECT_EQ(page->horizontalScrollBar()->maximum(), 0);
}

TEST_F(HelpWindowTest, LettersGrowAndShrinkByKeys) {
    ASSERT_TRUE(active());
    const qreal before = text().document()->size().height();
    press(Qt::Key_Plus, Qt::ControlModifier);
    press(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_GT(text().document()->size().height(), before);
    press(Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(text().document()->size().height(), before);
}

TEST_F(HelpWindowTest, WhereOneReadsStaysInSightInOtherLettersAndTheOtherLanguage) {
    window.open("long", Language::English);
    ASSERT_TRUE(active());
    QScrollBar& bar = *text().verticalScrollBar();
    ASSERT_TRUE(until([&] { return bar.maximum() > 2000; }));
    bar.setValue(bar.maximum() / 2);
    const auto share = [&bar] { return double(bar.value()) / bar.maximum(); };
    press(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_NEAR(share(), 0.5, 0.05);
    press(Qt::Key_0, Qt::ControlModifier);
    EXPECT_NEAR(share(), 0.5, 0.05);
    for (QToolButton* key : window.findChildren<QToolButton*>()) {
        if (key->text() == "Español") key->click();
    }
    EXPECT_NEAR(share(), 0.5, 0.05);
}

TEST_F(HelpWindowTest, TheHelpKeyOpensThePageOfWhatIsMeantElseTheHelpFile) {
    window.close();
    std::string topic = "Sample";
    desktop->book(book, [&topic](const Form&, const Control*) { return topic; });
    desktop->helpFile = "one";
    showSample();
    const auto shown = [] {
        for (QWidget* top : QApplication::topLevelWidgets()) {
            auto* help = dynamic_cast<HelpWindow*>(top);
            if (help && help->isVisible()) return help->page();
        }
        return QString();
    };
    QTest::keyClick(&view(*sample), Qt::Key_F1);
    EXPECT_TRUE(until([&] { return shown() == "two"; })) << shown().toStdString();
    topic = "unknown";
    QTest::keyClick(&view(*sample), Qt::Key_F1);
    EXPECT_TRUE(until([&] { return shown() == "one"; })) << shown().toStdString();
    desktop->helpFile = "none";
    desktop->showHelp("");
    EXPECT_EQ(shown(), "one") << "no file, no help";
}

/// The words of a page that have too little contrast to their background.
QStringList faintWords(const QTextDocument& page) {
    QStringList faint;
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
        const QTextTable* table = QTextCursor(block).currentTable();
        const QBrush cell =
            table ? table->cellAt(QTextCursor(block)).format().background() : QBrush();
        for (auto at = block.begin(); !at.atEnd(); ++at) {
            const QTextCharFormat format = at.fragment().charFormat();
            if (format.isImageFormat() || at.fragment().text().trimmed().isEmpty()) continue;
            QBrush ground = format.background();
            if (ground.style() == Qt::NoBrush) ground = block.blockFormat().background();
            if (ground.style() == Qt::NoBrush) ground = cell;
            const QColor under = ground.style() == Qt::NoBrush ? QColor(kWellTop) : ground.color();
            if (contrastOf(format.foreground().color(), under) < kLegible) {
                faint << at.fragment().text();
            }
        }
    }
    return faint;
}

TEST_F(HelpWindowTest, EveryPageOfTheManualIsLegibleAndFitsItsColumn) {
    const hmonitor::Book manual(hmonitor::manualIn(HMONITOR_SOURCE_DIR));
    for (const QRect& room : {kLaptop, QRect(0, 0, 1024, 600)}) {
        HelpWindow whole(manual, kLetters, room);
        for (const Language language : {Language::Spanish, Language::English}) {
            for (const HelpEntry& entry : manual.contents(language)) {
                ASSERT_TRUE(whole.open(QString::fromStdString(entry.page), language)) << entry.page;
                const auto* page = whole.findChild<QTextBrowser*>();
                EXPECT_EQ(page->horizontalScrollBar()->maximum(), 0) << entry.page;
                EXPECT_TRUE(faintWords(*page->document()).isEmpty())
                    << entry.page << ": "
                    << faintWords(*page->document()).join(" | ").toStdString();
            }
        }
    }
}

}  // namespace display::qt
