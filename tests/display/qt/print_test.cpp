// SPDX-License-Identifier: GPL-3.0-or-later
#include <QClipboard>
#include <QFile>
#include <QPrinterInfo>
#include <QTemporaryDir>

#include "tests/display/qt/paper_desktop.h"
#include "tests/display/qt/qt_bench.h"

namespace display::qt {

class Print : public QtBench {};

TEST_F(Print, WindowsGoOnOnePageAndTheClipboardStaysAsItWas) {
    const QTemporaryDir folder;
    int argc = 0;
    PaperDesktop paper(argc, folder.filePath("page.pdf"));
    test::SampleForm form(paper, "OnPaper");
    form.show();
    QTest::qWait(100);
    QApplication::clipboard()->setText("mine");
    EXPECT_EQ(paper.printImage({&form}), "");
    EXPECT_EQ(QApplication::clipboard()->text(), "mine");
    QFile page(folder.filePath("page.pdf"));
    ASSERT_TRUE(page.open(QIODevice::ReadOnly));
    const QByteArray bytes = page.readAll();
    EXPECT_TRUE(bytes.startsWith("%PDF"));
    EXPECT_EQ(bytes.count("/Type /Page\n"), 1);
    // Text is printed as text and lines as lines, not as a raster image.
    EXPECT_TRUE(bytes.contains("/FontFile"));
    EXPECT_FALSE(bytes.contains("/Subtype /Image"));
}

TEST_F(Print, WithoutAPrinter_SaysSoInOneSentence) {
    if (!QPrinterInfo::defaultPrinter().isNull()) GTEST_SKIP() << "this computer has a printer";
    showSample();
    const std::string fault = desktop->printImage({sample.get()});
    EXPECT_TRUE(fault == "No printer is set up on this computer." ||
                fault == "No hay ninguna impresora configurada en este equipo.")
        << fault;
}

TEST_F(Print, FormsThatAreNotShown_PrintNothing) {
    EXPECT_EQ(desktop->printImage({sample.get()}), "");
}

}  // namespace display::qt
