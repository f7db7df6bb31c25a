// SPDX-License-Identifier: GPL-3.0-or-later
// Saving and opening by the file dialog, and what is left of a file that cannot be written.
#include <QAbstractItemView>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QToolButton>
#include <algorithm>
#include <map>
#include <set>

#include "display/number_table.h"
#include "display/page.h"
#include "display/save_question.h"
#include "tests/display/qt/full_disk.h"
#include "tests/display/qt/qt_bench.h"

namespace display::qt {

class WrittenFile : public QtBench {
 protected:
    QByteArray read(const QString& name) const {
        QFile file(folder.filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    QStringList names() const {
        return QDir(folder.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }
    std::string write(const QString& name, std::string_view bytes) {
        return desktop->writeFile(folder.filePath(name).toStdString(), bytes);
    }
    QTemporaryDir folder;
};

TEST_F(WrittenFile, HoldsTheBytesAndReplacesWhatStoodThere) {
    EXPECT_EQ(write("a.csv", "first and longer\r\n"), "");
    EXPECT_EQ(write("a.csv", std::string_view("x\0y", 3)), "");
    EXPECT_EQ(read("a.csv"), QByteArray("x\0y", 3));
    EXPECT_EQ(names(), QStringList{"a.csv"});
}

TEST_F(WrittenFile, InAFolderThatTakesNoneSaysSoInOneSentence) {
    ASSERT_EQ(write("file", "no folder"), "");
    const std::string fault = write("file/a.csv", "x");
    EXPECT_TRUE(fault.starts_with("a.csv cannot be written: ") ||
                fault.starts_with("a.csv no se puede escribir: "))
        << fault;
    EXPECT_GT(fault.size(), 32u) << "and why";
    EXPECT_EQ(names(), QStringList{"file"});
    EXPECT_EQ(read("file"), "no folder");
}

TEST_F(WrittenFile, OnAFullDiskLeavesTheOldOneAndNothingBeside) {
    ASSERT_EQ(write("old.png", "the old one"), "");
    const std::string large(100000, 'x');
    {
        const FullDisk full(20000);
        EXPECT_NE(write("old.png", large), "");
        EXPECT_NE(write("new.png", large), "");
    }
    EXPECT_EQ(names(), QStringList{"old.png"});
    EXPECT_EQ(read("old.png"), "the old one");
    EXPECT_EQ(write("new.png", large), "") << "there is room again";
}

/// Everything that leaves a window as a file.
class Export : public WrittenFile, public testing::WithParamInterface<const char*> {
 protected:
    Export() {
        sample->PictureBox1.numbers = [] {
            NumberTable table{"Spectrum", "UNO 98.1 MHz", {{"Level", "dB"}}, {}};
            for (int row = 0; row < 2000; ++row) table.rows.push_back({"-3.5"});
            return table;
        };
        showSample();
        for (const auto [format, name] : {std::pair{PictureFormat::Png, "drawing.png"},
                                          std::pair{PictureFormat::Svg, "drawing.svg"},
                                          std::pair{PictureFormat::Pdf, "drawing.pdf"}})
            files[name] = desktop->pictureOf(sample->PictureBox1, format);
        files["numbers.csv"] = csvText(sample->PictureBox1.numbers());
        PageDocument document;
        for (int i = 0; i < 20; ++i) {
            document.newPage();
            document.text({720, 720}, "a page");
        }
        files["pages.pdf"] = desktop->pdfOfPages(document, 1, 20);
        files["window.pdf"] = desktop->pdfOfImage({sample.get()});
    }
    std::map<std::string, std::string> files;
};

TEST_P(Export, OnADiskThatIsFullAtAnyByteSaysSoAndLeavesTheOldFile) {
    const std::string bytes = files[GetParam()];
    ASSERT_GT(bytes.size(), 500u);
    const QString name = QString::fromLatin1(GetParam());
    std::set<std::size_t> limits{0, 1, bytes.size() / 2, bytes.size() - 1};
    constexpr std::size_t kBlock = 4096;
    for (std::size_t limit = kBlock; limit < bytes.size(); limit += kBlock) limits.insert(limit);
    ASSERT_EQ(write(name, "the old one"), "");
    for (const std::size_t limit : limits) {
        SCOPED_TRACE(limit);
        const FullDisk full(limit);
        const std::string fault = write(name, bytes);
        EXPECT_TRUE(fault.starts_with(GetParam() + std::string(" cannot be written: ")) ||
                    fault.starts_with(GetParam() + std::string(" no se puede escribir: ")))
            << fault;
        EXPECT_EQ(read(name), "the old one");
        EXPECT_EQ(names(), QStringList{name});
    }
    EXPECT_EQ(write(name, bytes), "") << "there is room again";
    EXPECT_EQ(read(name).toStdString(), bytes);
}

INSTANTIATE_TEST_SUITE_P(EachKind, Export,
                         testing::Values("drawing.png", "drawing.svg", "drawing.pdf", "numbers.csv",
                                         "pages.pdf", "window.pdf"),
                         [](const auto& kind) {
                             std::string name = kind.param;
                             std::ranges::replace(name, '.', '_');
                             return name;
                         });

class SaveDialog : public WrittenFile {
 protected:
    SaveDialog() {
        QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        // Each test needs a running loop: one that ended before would close every dialog at once.
        QTimer::singleShot(0, qApp, &QCoreApplication::quit);
        QCoreApplication::exec();
        question.title = "Save";
        question.stem = "RADIO UNO 98.1 MHz";
        question.kinds = {{"Picture", "png"}, {"Numbers", "csv"}};
    }
    ~SaveDialog() override { QApplication::setAttribute(Qt::AA_DontUseNativeDialogs, false); }

    /// Asks for a place; `act` gets the dialog as soon as it is open.
    std::optional<std::string> ask(const std::function<void(QFileDialog&)>& act) {
        QTimer hands;
        QObject::connect(&hands, &QTimer::timeout, &hands, [&] {
            for (QWidget* window : QApplication::topLevelWidgets()) {
                auto* dialog = qobject_cast<QFileDialog*>(window);
                if (!dialog || !dialog->isVisible()) continue;
                hands.stop();
                act(*dialog);
                return;
            }
        });
        hands.start(20);
        return desktop->askWhereToSave(question);
    }
    /// Types a path in place of the proposed name and accepts it.
    static void type(QFileDialog& dialog, const QString& path) {
        auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        ASSERT_NE(name, nullptr);
        name->setText(path);
        QTest::keyClick(name, Qt::Key_Return);
    }
    SaveQuestion question;
};

TEST_F(SaveDialog, ProposesTheNameAndTakesAnotherWithItsEnding) {
    QString proposed, title;
    const auto path = ask([&](QFileDialog& dialog) {
        title = dialog.windowTitle();
        proposed = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text();
        type(dialog, folder.filePath("numbers.csv"));
    });
    EXPECT_EQ(title, "Save");
    EXPECT_EQ(proposed, "RADIO UNO 98.1 MHz.png");
    EXPECT_EQ(path, folder.filePath("numbers.csv").toStdString());
}

TEST_F(SaveDialog, ANameWithoutAnEndingGetsTheChosenKinds) {
    const auto png = ask([&](QFileDialog& dialog) { type(dialog, folder.filePath("a")); });
    EXPECT_EQ(png, folder.filePath("a.png").toStdString());
    const auto csv = ask([&](QFileDialog& dialog) {
        dialog.selectNameFilter(dialog.nameFilters().at(1));
        Q_EMIT dialog.filterSelected(dialog.nameFilters().at(1));
        type(dialog, folder.filePath("98.1 MHz"));
    });
    EXPECT_EQ(csv, folder.filePath("98.1 MHz.csv").toStdString());
}

TEST_F(SaveDialog, ThatIsLeftAsksForNothing) {
    EXPECT_EQ(ask([](QFileDialog& dialog) { dialog.reject(); }), std::nullopt);
    EXPECT_TRUE(names().isEmpty());
}

TEST_F(SaveDialog, BeginsWhereAFileWasSavedLast) {
    (void)ask([&](QFileDialog& dialog) { type(dialog, folder.filePath("a.png")); });
    QString where;
    (void)ask([&](QFileDialog& dialog) {
        where = dialog.directory().absolutePath();
        dialog.reject();
    });
    EXPECT_EQ(where, QDir(folder.path()).absolutePath());
}

/// The desktop of a user who speaks Spanish.
class SpanishSaveDialog : public SaveDialog {
 protected:
    SpanishSaveDialog() {
        const QByteArray before = qgetenv("LC_ALL");
        qputenv("LC_ALL", "es_AR.UTF-8");
        sample.reset();
        int argc = 0;
        desktop = std::make_unique<QtDesktop>(argc, nullptr);
        sample = std::make_unique<test::SampleForm>(*desktop);
        qputenv("LC_ALL", before);
    }
};

TEST_F(SpanishSaveDialog, SpeaksSpanishDownToTheHeadsOfItsColumns) {
    QStringList heads, tips;
    (void)ask([&](QFileDialog& dialog) {
        const auto* list = dialog.findChild<QAbstractItemView*>(QStringLiteral("treeView"));
        for (int column = 0; column < list->model()->columnCount(); ++column) {
            heads << list->model()->headerData(column, Qt::Horizontal).toString();
        }
        for (const auto* key : dialog.findChildren<QToolButton*>()) tips << key->toolTip();
        dialog.reject();
    });
    EXPECT_EQ(heads.join(", ").toStdString(), "Nombre, Tamaño, Tipo, Última modificación");
    EXPECT_TRUE(tips.contains("Crear nueva carpeta")) << tips.join(", ").toStdString();
}

TEST_F(SaveDialog, TimeGoesOnWhileItStands) {
    showSample();
    sample->Timer1.interval = std::chrono::milliseconds(20);
    sample->Timer1.enabled = true;
    desktop->queue().openGate();
    desktop->hand().click(sample->Key1);
    settle();
    sample->heard.clear();
    (void)ask([&](QFileDialog& dialog) {
        QTest::qWait(150);
        dialog.reject();
    });
    EXPECT_GT(times("Timer1 tick"), 2);
    sample->Timer1.enabled = false;
}

class PdfFile : public QtBench {};

TEST_F(PdfFile, OfADocumentHasTheAskedPagesOnTheSheetOfThePrinter) {
    PageDocument document;
    for (int i = 0; i < 3; ++i) {
        document.newPage();
        document.text({720, 720}, "a page");
    }
    const QByteArray bytes = QByteArray::fromStdString(desktop->pdfOfPages(document, 1, 2));
    EXPECT_TRUE(bytes.startsWith("%PDF"));
    EXPECT_TRUE(bytes.trimmed().endsWith("%%EOF"));
    EXPECT_EQ(bytes.count("/Type /Page\n"), 2);
    const Paper paper = desktop->paper();
    const QByteArray box = "/MediaBox [0 0 " + QByteArray::number(qRound(paper.width / 20));
    EXPECT_TRUE(bytes.contains(box)) << box.constData();
}

}  // namespace display::qt
