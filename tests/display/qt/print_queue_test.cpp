// SPDX-License-Identifier: GPL-3.0-or-later
// Pages sent to a real queue: a print server of the test's own.
#include "display/qt/painting/print_queue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QImage>
#include <QProcess>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QTest>

#include "display/page.h"
#include "display/qt/windows/qt_desktop.h"
#include "tests/display/qt/application.h"
#include "tests/display/qt/cups_server.h"
#include "tests/display/qt/full_disk.h"
#include "tests/display/qt/live_rack.h"

namespace hmonitor::test {
namespace {

using display::qt::CupsServer;
using display::qt::PrintSystem;
using display::qt::QtDesktop;
using testing::AnyOf;
using testing::HasSubstr;
using testing::StartsWith;

std::string outputOf(const char* program, const QStringList& arguments) {
    QProcess process;
    process.start(QString::fromLatin1(program), arguments);
    if (!process.waitForFinished(20000)) return "did not end";
    return process.readAllStandardOutput().toStdString();
}

/// The words of a page, one blank between them.
std::string wordsOf(const QString& pdf) {
    const QString text = QString::fromStdString(
        outputOf("pdftotext", {QStringLiteral("-layout"), pdf, QStringLiteral("-")}));
    return text.simplified().toStdString();
}

QImage pictureOf(const QString& pdf, int dotsPerInch) {
    const QTemporaryDir folder;
    const QString stem = folder.filePath(QStringLiteral("page"));
    outputOf("pdftoppm", {QStringLiteral("-r"), QString::number(dotsPerInch),
                          QStringLiteral("-png"), QStringLiteral("-singlefile"), pdf, stem});
    return QImage(stem + QStringLiteral(".png"));
}

display::PageDocument onePage(const char* words) {
    display::PageDocument document;
    document.margins = {720, 720, 720, 720};
    document.text({1000, 2000}, words);
    return document;
}

class PrintQueue : public testing::Test {
 protected:
    PrintQueue() { display::qt::startApplication(); }
    void SetUp() override { ASSERT_TRUE(CupsServer::installed()) << "cupsd is not installed"; }
    QtDesktop& desktop() {
        if (!desktop_) desktop_ = std::make_unique<QtDesktop>(noArguments_, nullptr);
        return *desktop_;
    }

 private:
    int noArguments_ = 0;
    std::unique_ptr<QtDesktop> desktop_;
};

TEST_F(PrintQueue, ADocumentArrivesAsPdfWithItsWords) {
    const CupsServer server(CupsServer::Queue::Prints);
    ASSERT_TRUE(server.answers()) << server.log().toStdString();
    EXPECT_EQ(desktop().printPages(onePage("On-Air Performance Log"), 1, 1), "");
    const QStringList jobs = server.jobs();
    ASSERT_EQ(jobs.size(), 1) << server.log().toStdString();
    EXPECT_THAT(wordsOf(jobs[0]), HasSubstr("On-Air Performance Log"));
}

TEST_F(PrintQueue, TheSheetIsWhatTheQueueTakes) {
    const CupsServer server(CupsServer::Queue::Prints);
    const display::Paper paper = desktop().paper();
    EXPECT_NEAR(paper.width, display::kA4.width, 20);
    EXPECT_NEAR(paper.height, display::kA4.height, 20);
}

TEST_F(PrintQueue, TwoPressesAreTwoJobs) {
    const CupsServer server(CupsServer::Queue::Prints);
    EXPECT_EQ(desktop().printPages(onePage("first"), 1, 1), "");
    EXPECT_EQ(desktop().printPages(onePage("second"), 1, 1), "");
    const QStringList jobs = server.jobs();
    ASSERT_EQ(jobs.size(), 2);
    EXPECT_THAT(wordsOf(jobs[0]), HasSubstr("first"));
    EXPECT_THAT(wordsOf(jobs[1]), HasSubstr("second"));
}

TEST_F(PrintQueue, APausedPrinterKeepsTheJobForLater) {
    const CupsServer server(CupsServer::Queue::Paused);
    EXPECT_EQ(desktop().printPages(onePage("later"), 1, 1), "");
    ASSERT_EQ(server.jobs().size(), 1);
    EXPECT_THAT(wordsOf(server.jobs()[0]), HasSubstr("later"));
}

TEST_F(PrintQueue, AQueueThatRefusesIsToldInItsWords) {
    const CupsServer server(CupsServer::Queue::Refuses);
    const std::string fault = desktop().printPages(onePage("never"), 1, 1);
    EXPECT_THAT(fault, AnyOf(StartsWith("The printer does not take the print job: "),
                             StartsWith("La impresora no acepta el trabajo de impresión: ")));
    EXPECT_THAT(fault, HasSubstr("not accepting jobs"));
    EXPECT_TRUE(server.jobs().isEmpty());
}

TEST_F(PrintQueue, ADiskThatHasNoRoomForThePageIsToldAndNothingIsPrinted) {
    const CupsServer server(CupsServer::Queue::Prints);
    ASSERT_TRUE(server.answers()) << server.log().toStdString();
    std::string fault;
    {
        const display::qt::FullDisk full(2000);
        fault = desktop().printPages(onePage("never"), 1, 1);
    }
    EXPECT_THAT(fault, AnyOf(StartsWith("There is no room on the disk for the page: "),
                             StartsWith("No hay lugar en el disco para la página: ")));
    EXPECT_TRUE(server.jobs().isEmpty());
}

TEST_F(PrintQueue, AServerWithoutAQueueHasNoPrinter) {
    const CupsServer server(CupsServer::Queue::None);
    EXPECT_EQ(display::qt::askPrintSystem(), PrintSystem::Answers);
    EXPECT_THAT(desktop().printPages(onePage("never"), 1, 1),
                AnyOf("No printer is set up on this computer.",
                      "No hay ninguna impresora configurada en este equipo."));
}

TEST_F(PrintQueue, WithoutAServerThereIsNoPrinter) {
    display::qt::printThrough("/no/server");
    EXPECT_EQ(display::qt::askPrintSystem(), PrintSystem::Absent);
    EXPECT_THAT(desktop().printPages(onePage("never"), 1, 1),
                AnyOf("No printer is set up on this computer.",
                      "No hay ninguna impresora configurada en este equipo."));
    EXPECT_GT(desktop().paper().width, 0) << "the usual sheet of the country";
}

TEST_F(PrintQueue, AServerThatFallsSilentHoldsNobodyUp) {
    CupsServer server(CupsServer::Queue::Prints);
    ASSERT_EQ(desktop().printPages(onePage("before"), 1, 1), "");
    server.silence();
    EXPECT_THAT(desktop().printPages(onePage("meanwhile"), 1, 1),
                AnyOf("The print system of this computer does not answer.",
                      "El sistema de impresión de este equipo no responde."));
    EXPECT_GT(desktop().paper().width, 0);
    server.wake();
    EXPECT_EQ(desktop().printPages(onePage("after"), 1, 1), "");
    EXPECT_EQ(server.jobs().size(), 2) << "nothing of what was refused comes later";
}

TEST_F(PrintQueue, AServerThatOnlyListensHoldsNobodyUp) {
    QTcpServer deaf;
    ASSERT_TRUE(deaf.listen(QHostAddress::LocalHost));
    display::qt::printThrough("127.0.0.1:" + QByteArray::number(deaf.serverPort()));
    EXPECT_EQ(display::qt::askPrintSystem(), PrintSystem::Silent);
    EXPECT_THAT(desktop().printPages(onePage("never"), 1, 1),
                AnyOf("The print system of this computer does not answer.",
                      "El sistema de impresión de este equipo no responde."));
}

std::string withoutBlanks(std::string words) {
    std::erase(words, ' ');
    return words;
}

/// The captions of a form that its window shows, without blanks: headings are spaced out, and a PDF
/// reader takes some of their gaps for blanks.
std::vector<std::string> captionsOf(const display::Form& form) {
    std::vector<std::string> captions;
    for (const display::Control* control : form.controls()) {
        const auto* label = dynamic_cast<const display::Label*>(control);
        if (!label || !label->shown() || label->caption.empty()) continue;
        captions.push_back(withoutBlanks(label->caption.get()));
    }
    return captions;
}

TEST_F(PrintQueue, TheRackArrivesWithAllItsWords) {
    const CupsServer server(CupsServer::Queue::Prints);
    LiveRack rack("en_US.UTF-8");
    ASSERT_TRUE(rack.measures());
    Form1& form1 = rack.forms().form1;
    form1.desktop().printImage(
        {&form1, &rack.forms().formB, &rack.forms().formC, &rack.forms().formD});
    ASSERT_EQ(server.jobs().size(), 1) << server.log().toStdString();
    const QString page = server.jobs()[0];
    const std::string words = withoutBlanks(wordsOf(page));
    std::size_t seen = 0;
    for (const display::Form* form :
         {static_cast<display::Form*>(&form1), static_cast<display::Form*>(&rack.forms().formB),
          static_cast<display::Form*>(&rack.forms().formC),
          static_cast<display::Form*>(&rack.forms().formD)}) {
        for (const std::string& caption : captionsOf(*form)) {
            ++seen;
            EXPECT_THAT(words, HasSubstr(caption)) << form->name();
        }
    }
    EXPECT_GT(seen, 60u);

    // The modulation is 80 percent: its bar is lit at 40 and dark at 150.
    const QImage picture = pictureOf(page, 150);
    ASSERT_FALSE(picture.isNull());
    QDir().mkpath(QStringLiteral("pictures"));
    picture.save(QStringLiteral("pictures/rack_on_paper.png"));
    QRect ink;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (qGray(picture.pixel(x, y)) < 200) ink |= QRect(x, y, 1, 1);
        }
    }
    const double unit = ink.width() / double{form1.width};
    const display::Box bar = form1.BarWell.boxOnForm();
    const auto at = [&](double percent) {
        const double x = bar.left + (230 + 48 * percent) * 0.85;
        const double y = bar.top + 0.85 * 240;
        return picture.pixelColor(ink.left() + qRound(x * unit), ink.top() + qRound(y * unit));
    };
    EXPECT_GT(at(40).green(), 110);
    EXPECT_LT(at(150).green(), 60);
}

}  // namespace
}  // namespace hmonitor::test
